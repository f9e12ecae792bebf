import QtQuick

// Stripes in the place of a picture that is not there.
Item {
    id: hatched

    property color stripe: Theme.raised

    clip: true
    Rectangle { anchors.fill: parent; color: Theme.canvas }
    Repeater {
        model: hatched.visible ? Math.ceil((hatched.width + hatched.height) / 28) : 0
        Rectangle {
            required property int index
            x: index * 28 - hatched.height
            y: hatched.height / 2 - height / 2
            width: 8
            height: (hatched.height + 40) * 1.5
            rotation: 45
            antialiasing: true
            color: hatched.stripe
        }
    }
}
