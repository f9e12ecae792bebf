import QtQuick

// A place for something that is not there yet, with words in it.
Item {
    id: place

    property alias text: words.text
    readonly property int dash: 8
    readonly property int across: Math.max(0, Math.floor(width / (2 * dash)))
    readonly property int down: Math.max(0, Math.floor(height / (2 * dash)))

    Repeater {
        model: place.visible ? 2 * (place.across + place.down) : 0
        Rectangle {
            required property int index
            readonly property bool flat: index < 2 * place.across
            readonly property int at: flat ? index : index - 2 * place.across
            color: Theme.disabled
            width: flat ? place.dash : 1
            height: flat ? 1 : place.dash
            x: flat ? Math.floor(at / 2) * 2 * place.dash : (at % 2) * (place.width - 1)
            y: flat ? (at % 2) * (place.height - 1) : Math.floor(at / 2) * 2 * place.dash
        }
    }
    Words { id: words; anchors.centerIn: parent; width: Math.min(implicitWidth, parent.width - 2 * Theme.gap); color: Theme.text3 }
}
