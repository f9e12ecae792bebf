import QtQuick
import Murbo 1.0

// Over a viewer's picture while a colour is asked for: a cross, and the colour under it. Arrows move it too.
Item {
    id: area

    property FrameView frame
    property point at
    readonly property bool takesArrows: true
    function go(x, y) { at = Qt.point(Math.max(0, Math.min(width - 1, x)), Math.max(0, Math.min(height - 1, y))); eyedropper.look(frame, at) }

    visible: eyedropper.active
    z: 10
    Accessible.role: Accessible.Graphic
    Accessible.name: "Pick a colour" + (eyedropper.colour ? ": #" + eyedropper.colour : "")
    Accessible.focusable: visible
    onVisibleChanged: if (visible && frame.visible) { forceActiveFocus(Qt.OtherFocusReason); go(width / 2, height / 2) }
    Keys.onPressed: (event) => {
        const far = (event.modifiers & Qt.ShiftModifier ? 10 : 1) * 4
        event.accepted = true
        if (event.key === Qt.Key_Left) go(at.x - far, at.y)
        else if (event.key === Qt.Key_Right) go(at.x + far, at.y)
        else if (event.key === Qt.Key_Up) go(at.x, at.y - far)
        else if (event.key === Qt.Key_Down) go(at.x, at.y + far)
        else if (event.key === Qt.Key_Return || event.key === Qt.Key_Enter) eyedropper.take()
        else event.accepted = false
    }

    MouseArea {
        anchors.fill: parent
        hoverEnabled: true
        cursorShape: Qt.CrossCursor
        onPositionChanged: (mouse) => area.go(mouse.x, mouse.y)
        onPressed: (mouse) => area.go(mouse.x, mouse.y)
        onClicked: eyedropper.take()
    }
    Item {
        visible: eyedropper.colour !== "" && (area.activeFocus || hand.hovered)
        HoverHandler { id: hand; parent: area }
        Rectangle { x: Math.round(area.at.x) - 12; y: Math.round(area.at.y); width: 25; height: 1; color: Theme.text }
        Rectangle { x: Math.round(area.at.x); y: Math.round(area.at.y) - 12; width: 1; height: 25; color: Theme.text }
        Rectangle {
            x: Math.min(area.at.x + Theme.margin, area.width - width)
            y: Math.min(area.at.y + Theme.margin, area.height - height)
            width: 108
            height: Theme.control + Theme.gap
            radius: Theme.radius
            color: "#E617181B"
            border.color: Theme.fieldEdge
            Rectangle { x: Theme.small; y: Theme.small; width: Theme.control; height: Theme.control; radius: Theme.small; color: eyedropper.colour ? "#" + eyedropper.colour : "transparent"; border.color: Theme.fieldEdge }
            Words { x: Theme.control + Theme.wide; height: parent.height; text: "#" + eyedropper.colour }
        }
    }
}
