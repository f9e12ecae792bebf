import QtQuick

// How far a view is scrolled; a drag scrolls it.
Rectangle {
    id: mark

    property Flickable of

    visible: of.contentHeight > of.height + 1
    anchors.right: of.right
    y: of.y + of.visibleArea.yPosition * of.height
    width: 6
    height: Math.max(of.visibleArea.heightRatio * of.height, 24)
    radius: 3
    color: touch.pressed || touch.containsMouse ? Theme.text3 : Theme.pressed
    MouseArea {
        id: touch
        property real start
        anchors.fill: parent
        anchors.leftMargin: -4
        hoverEnabled: true
        preventStealing: true
        onPressed: (mouse) => start = mouse.y
        onPositionChanged: (mouse) => {
            if (!pressed) return
            const most = mark.of.contentHeight - mark.of.height
            mark.of.contentY = Math.max(0, Math.min(most, mark.of.contentY + (mouse.y - start) * mark.of.contentHeight / mark.of.height))
        }
    }
}
