import QtQuick

// The head of a viewer: what it shows, or with one region for both the choice between them. The accent line
// says that the keys are for it.
Rectangle {
    id: head

    property bool tabbed: false
    property string viewer
    property string tag
    property string title
    property string note
    property real taken: 60 // by what stands at the right

    width: parent.width
    height: Theme.bar - 4
    color: Theme.panel

    Row {
        visible: head.tabbed
        x: Theme.gap
        anchors.verticalCenter: parent.verticalCenter
        Choice {
            name: "Viewer"
            words: ["Source", "Video"]
            chosen: head.viewer === "source" ? 0 : 1
            onPicked: (index) => project.setFocus(index === 0 ? "source" : "video")
        }
    }
    Row {
        x: head.tabbed ? 150 : Theme.wide
        spacing: Theme.gap
        height: parent.height
        Words { text: head.tag; font.weight: Font.DemiBold; height: parent.height; visible: text !== "" }
        Words { text: head.title; color: Theme.text2; height: parent.height; width: Math.max(Math.min(implicitWidth, head.width - parent.x - x - head.taken - Theme.gap), 0) }
    }
    Words { anchors.right: parent.right; anchors.rightMargin: Theme.wide; height: parent.height; text: head.note; color: Theme.text3 }
    Rectangle { anchors.bottom: parent.bottom; width: parent.width; height: Theme.ring
                color: project.focus === head.viewer ? Theme.accent : "transparent" }
}
