import QtQuick

// The line between two regions, to be dragged; a double click puts it back.
MouseArea {
    id: splitter

    signal moved(real y)
    signal reset()

    height: 8
    cursorShape: Qt.SplitVCursor
    preventStealing: true
    onPositionChanged: (mouse) => { if (pressed) moved(mapToItem(null, 0, mouse.y).y) }
    onDoubleClicked: reset()
    Rectangle { anchors.verticalCenter: parent.verticalCenter; width: parent.width; height: 1; color: Theme.line }
}
