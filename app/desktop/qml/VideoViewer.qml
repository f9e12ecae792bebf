import QtQuick
import Murbo 1.0

// The open video as it will be.
FocusScope {
    id: viewer

    property bool tabbed: false
    property bool tall: false
    property alias frame: frame
    readonly property bool upright: project.aspect === "9:16"
    readonly property bool roomy: tall || width > 320
    function noteSkim() { handles.noteSkim() }
    function cancelDrag() { return handles.cancelEdit() || handles.cancelDrag() }
    function takeFocus() { forceActiveFocus(Qt.TabFocusReason); project.setFocus("video") }

    Accessible.role: Accessible.Pane
    Accessible.name: "Video viewer"

    ViewerHead { id: head; tabbed: viewer.tabbed; viewer: "video"; tag: project.videoTag; title: project.videoTitle; note: viewer.roomy ? "" : project.aspect; taken: viewer.roomy ? 168 : 60
        Row {
            anchors.right: parent.right
            anchors.rightMargin: Theme.gap
            anchors.verticalCenter: parent.verticalCenter
            visible: viewer.roomy
            spacing: 2
            Words { text: project.aspect; color: Theme.text3; height: Theme.control; rightPadding: Theme.gap }
            IconButton { glyph: "frame"; name: "Safe areas"; checked: viewerAids.safeAreas; visible: viewer.upright; onClicked: project.perform("safeAreas") }
            IconButton { glyph: "smartphone"; name: "Tall viewer"; checked: viewer.tall; visible: viewer.upright && viewer.Window.width >= 1700; onClicked: project.perform("tall") }
            IconButton { glyph: "maximize"; name: "Full-screen viewer"; keys: "Ctrl+Shift+F"; onClicked: project.perform("fullViewer") }
        }
    }
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
    SafeAreas {
        x: frame.x + frame.picture.x; y: frame.y + frame.picture.y; width: frame.picture.width; height: frame.picture.height
        visible: viewerAids.safeAreas && viewer.upright && project.cuts > 0
    }
    PictureHandles {
        id: handles
        x: frame.x + frame.picture.x; y: frame.y + frame.picture.y; width: frame.picture.width; height: frame.picture.height
    }
    EyedropperArea { frame: viewer.frame; x: frame.x; y: frame.y; width: frame.width; height: frame.height }
    RateBadge { x: frame.x + Theme.gap; y: frame.y + Theme.gap; player: project.player }
    Badge { anchors.right: frame.right; y: frame.y + Theme.gap; anchors.rightMargin: Theme.gap; text: viewerAids.droppedFrames ? viewerAids.droppedWords : "" }
    Badge { // above the old picture while a new one is made
        anchors.horizontalCenter: frame.horizontalCenter; y: frame.y + frame.height - height - Theme.gap
        text: project.missingCuts
    }
    Column {
        anchors.centerIn: frame
        visible: project.cuts === 0
        spacing: Theme.wide
        Words {
            anchors.horizontalCenter: parent.horizontalCenter
            text: project.videoTag ? "Put a clip in with E or W" : "No video yet"
            color: Theme.text3
            Accessible.role: Accessible.StaticText
            Accessible.name: text
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
        Words { id: words; anchors.centerIn: parent; width: Math.min(implicitWidth, frame.width - 2 * Theme.margin); text: project.problem; wrapMode: Text.WordWrap; elide: Text.ElideNone; Accessible.role: Accessible.AlertMessage; Accessible.name: text }
    }
    Transport {
        id: transport
        anchors.bottom: parent.bottom
        width: parent.width
        player: project.player
        view: frame
        what: "video"
        lengthWords: project.cuts > 0 ? project.fine(project.videoLength) : ""
    }
}
