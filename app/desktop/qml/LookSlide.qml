import QtQuick

// A slider with its name before it and its value after it.
Item {
    id: row

    property string name
    property string said
    property alias from: slide.from
    property alias to: slide.to
    property real value
    signal moved(real value)

    width: parent ? parent.width : 0
    height: Theme.control
    Words { width: 84; height: parent.height; text: row.name; color: Theme.text2 }
    Slide { id: slide; x: 84; width: parent.width - 84 - 52; anchors.verticalCenter: parent.verticalCenter; name: row.name; value: row.value
            onMoved: row.moved(value) }
    Words { anchors.right: parent.right; height: parent.height; text: row.said; color: Theme.text3; font.pixelSize: Theme.noteSize; elide: Text.ElideNone }
}
