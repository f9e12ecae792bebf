import QtQuick
import Murbo 1.0

// What is held of the footage: picture, waveform with the marked range, transport.
FocusScope {
    id: viewer

    property bool tabbed: false
    readonly property bool held: project.sourcePlayer.spanEnd > project.sourcePlayer.spanStart
    function takeFocus() { forceActiveFocus(Qt.TabFocusReason); project.setFocus("source") }

    Accessible.role: Accessible.Pane
    Accessible.name: "Source viewer"

    ViewerHead { id: head; tabbed: viewer.tabbed; viewer: "source"; tag: project.heldTag; title: project.heldTitle }
    FrameView {
        id: frame
        anchors.top: head.bottom
        anchors.bottom: strip.top
        anchors.margins: Theme.gap
        anchors.left: parent.left
        anchors.right: parent.right
        player: project.sourcePlayer
        Accessible.role: Accessible.Graphic
        Accessible.name: project.heldTitle ? "Picture of " + project.heldTitle : "No footage"
        TapHandler { onTapped: project.setFocus("source") }
    }
    Words {
        anchors.centerIn: frame
        visible: !viewer.held
        text: project.heldMissing ? "The file of this footage was not found" : "Pick a clip in the browser"
        color: Theme.text3
    }
    WaveStrip {
        id: strip
        anchors.bottom: transport.top
        x: Theme.gap
        width: parent.width - 2 * Theme.gap
        height: viewer.height > 420 ? 48 : 30
        editor: project.editor
        wave: Theme.disabled
        range: Theme.picked
        mark: Theme.notice
        playhead: Theme.playhead
        Component.onCompleted: setFootage(project.footage)
    }
    Transport {
        id: transport
        anchors.bottom: parent.bottom
        width: parent.width
        player: project.sourcePlayer
        what: "source"
        lengthWords: viewer.held ? [project.clock(project.sourcePlayer.spanEnd - project.sourcePlayer.spanStart), project.rangeWords].filter(one => one).join(" · ") : ""
    }
    Row {
        anchors.bottom: parent.bottom
        anchors.bottomMargin: (Theme.bar - Theme.control) / 2
        x: Math.min(parent.width * 0.7, parent.width - 210)
        visible: viewer.held && viewer.width > 480
        IconButton { glyph: "corner-down-left"; name: "Insert at playhead"; keys: "W"; onClicked: project.perform("key.insert") }
        IconButton { glyph: "list-plus"; name: "Add to end"; keys: "E"; onClicked: project.perform("key.addToEnd") }
    }
}
