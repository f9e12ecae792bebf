import QtQuick
import Murbo 1.0

// Where content and face lie in the picture of the source viewer, with what comes of it beside them.
Item {
    id: overlay

    property FrameView frame
    property real originX: 0 // of this, where the picture's view lies too
    property real originY: 0
    readonly property real resultWidth: Math.min(Math.max(width * 0.24, 96), (height - bar.height - Theme.gap) * 9 / 16)
    readonly property real taken: resultWidth + Theme.wide // what the picture leaves free at its right
    function cancelDrag() { return boxes.cancelDrag() || result.cancelDrag() }
    function takeFocus() { boxes.forceActiveFocus(Qt.TabFocusReason) }

    FramingView {
        id: boxes
        // on whole points, so that its lines are seen
        x: Math.round(overlay.frame.x - overlay.originX + overlay.frame.picture.x)
        y: Math.round(overlay.frame.y - overlay.originY + overlay.frame.picture.y)
        width: Math.round(overlay.frame.picture.width)
        height: Math.round(overlay.frame.picture.height)
        editor: project.editor
        content: Theme.timeline["content.edge"]
        face: Theme.timeline["face.edge"]
        label: Theme.accentText
        veil: "#A6000000"
        Accessible.role: Accessible.Graphic
        Accessible.name: "Framing"
        Accessible.description: words
        Accessible.focusable: true
    }
    Rectangle {
        anchors.right: parent.right
        y: Math.max(Math.round((bar.y - Theme.gap - height) / 2), 0) // beside the middle of the picture
        width: overlay.resultWidth
        height: width * 16 / 9
        color: "black"
        FramingResult {
            id: result
            anchors.fill: parent
            editor: project.editor
            frame: overlay.frame
            Accessible.role: Accessible.Graphic
            Accessible.name: "What comes of the framing"
            Rectangle {
                visible: result.layout === 0
                y: result.split * parent.height - 1
                width: parent.width
                height: 2
                color: boxes.chosen === 3 ? Theme.picked : Theme.text
                Rectangle { anchors.centerIn: parent; width: 24; height: 8; radius: 4; color: parent.color }
                HoverHandler { cursorShape: Qt.SizeVerCursor }
            }
        }
    }
    Row {
        id: bar
        anchors.bottom: parent.bottom
        anchors.horizontalCenter: parent.horizontalCenter
        spacing: Theme.gap
        Words { text: "Arrows move"; color: Theme.text3; height: Theme.control; visible: overlay.width > 620 }
        Choice { name: "What the arrow keys move"; words: ["Content", "Face", "Eyes", "Split"]; chosen: boxes.chosen
                 onPicked: (index) => boxes.chosen = index }
        Words { text: "Shown"; color: Theme.text3; height: Theme.control; visible: overlay.width > 620; leftPadding: Theme.gap }
        Choice { name: "Result"; words: ["Split", "Content", "Face"]; chosen: result.layout; visible: overlay.width > 520
                 onPicked: (index) => result.layout = index }
        IconButton { glyph: "x"; name: "Forget the eyes"; visible: boxes.hasEyes && overlay.width > 520; onClicked: boxes.forgetEyes() }
    }
}
