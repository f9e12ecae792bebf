import QtQuick
import Murbo 1.0

// The open video as it will be.
FocusScope {
    id: viewer

    property bool tabbed: false
    property bool tall: false
    property alias frame: frame
    function takeFocus() { forceActiveFocus(Qt.TabFocusReason); project.setFocus("video") }

    Accessible.role: Accessible.Pane
    Accessible.name: "Video viewer"

    ViewerHead { id: head; tabbed: viewer.tabbed; viewer: "video"; tag: project.videoTag; title: project.videoTitle; note: project.aspect }
    FrameView {
        id: frame
        anchors.top: head.bottom
        anchors.bottom: transport.top
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.margins: Theme.gap
        player: project.player
        Accessible.role: Accessible.Graphic
        Accessible.name: project.videoTitle ? "Picture of " + project.videoTitle : "No video"
        TapHandler { onTapped: project.setFocus("video") }
    }
    Column {
        anchors.centerIn: frame
        visible: project.cuts === 0
        spacing: Theme.wide
        Words {
            anchors.horizontalCenter: parent.horizontalCenter
            text: project.videoTag ? "Put a clip in with E or W" : "No video yet"
            color: Theme.text3
        }
        PushButton { visible: !project.videoTag; text: "New Video"; onClicked: project.perform("sheet.newVideo") }
    }
    Rectangle {
        anchors.horizontalCenter: frame.horizontalCenter
        anchors.bottom: frame.bottom
        visible: project.problem !== ""
        width: Math.min(words.implicitWidth + 2 * Theme.margin, frame.width)
        height: words.implicitHeight + Theme.wide
        radius: Theme.radius
        color: Theme.badCard
        Words { id: words; anchors.centerIn: parent; width: Math.min(implicitWidth, frame.width - 2 * Theme.margin); text: project.problem; wrapMode: Text.WordWrap; elide: Text.ElideNone }
    }
    Transport {
        id: transport
        anchors.bottom: parent.bottom
        width: parent.width
        player: project.player
        what: "video"
        lengthWords: project.cuts > 0 ? project.fine(project.videoLength) : ""
    }
}
