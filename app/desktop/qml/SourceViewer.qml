import QtQuick
import Murbo 1.0

// What is held of the footage: picture, waveform with the marked range, transport.
FocusScope {
    id: viewer

    property bool tabbed: false
    readonly property bool held: project.sourcePlayer.spanEnd > project.sourcePlayer.spanStart
    readonly property bool frames: project.editor.framing && heldFootage.state === "ready"
    property bool late: false // a picture is asked for and has not come
    signal keysLeft() // the framing had them, and has gone
    function takeFocus() { forceActiveFocus(Qt.TabFocusReason); project.setFocus("source") }
    function cancelDrag() { return overlay.item ? overlay.item.cancelDrag() : false }

    Accessible.role: Accessible.Pane
    Accessible.name: "Source viewer"

    ViewerHead { id: head; tabbed: viewer.tabbed; viewer: "source"; tag: project.heldTag; title: project.heldTitle === project.heldTag ? "" : project.heldTitle
        IconButton {
            anchors.right: parent.right
            anchors.rightMargin: Theme.gap
            anchors.verticalCenter: parent.verticalCenter
            glyph: "crop"
            name: "Framing"
            checked: project.editor.framing
            enabled: heldFootage.state === "ready"
            onClicked: project.perform("framing")
        }
    }
    StillView { // until the first picture comes, and while the right one is late
        anchors.fill: screen
        anchors.leftMargin: screen.picture.width > 0 ? screen.picture.x : 0
        anchors.rightMargin: anchors.leftMargin
        anchors.topMargin: screen.picture.width > 0 ? screen.picture.y : 0
        anchors.bottomMargin: anchors.topMargin
        z: 1
        visible: heldFootage.state === "loading" || viewer.late && heldFootage.state === "ready"
        source: heldFootage.source
        from: heldFootage.at
        to: heldFootage.at
        footage: project.footage
    }
    FrameView {
        id: screen
        anchors.top: head.bottom
        anchors.bottom: strip.top
        anchors.margins: Theme.gap
        anchors.bottomMargin: viewer.frames ? Theme.control + 2 * Theme.gap : Theme.gap
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.rightMargin: viewer.frames && overlay.item ? overlay.item.taken + Theme.gap : Theme.gap
        player: project.sourcePlayer
        visible: heldFootage.state === "ready"
        onFrameShown: { viewer.late = false; waiting.stop() }
        Accessible.role: Accessible.Graphic
        Accessible.name: project.heldTitle ? "Picture of " + project.heldTitle : "No footage"
        TapHandler { onTapped: project.setFocus("source") }
    }
    Timer { id: waiting; interval: 60; onTriggered: { viewer.late = true; resting.restart() } }
    Timer { id: resting; interval: 500; onTriggered: viewer.late = false }
    Loader {
        id: overlay
        active: viewer.frames
        x: Theme.gap
        y: screen.y
        width: parent.width - 2 * Theme.gap
        height: strip.y - screen.y - Theme.gap
        sourceComponent: FramingOverlay { frame: screen; originX: overlay.x; originY: overlay.y }
        onLoaded: item.takeFocus()
        onActiveChanged: if (!active && activeFocus) viewer.keysLeft()
    }
    Row { // the edge of a trim; of a seam both sides of it
        anchors.fill: screen
        visible: heldFootage.showsEdge
        z: 2
        EdgeOfTrim { edge: heldFootage.edge; width: parent.width / (heldFootage.edgeAfter.shown ? 2 : 1); height: parent.height; words: heldFootage.edgeAfter.shown ? "Out " : "" }
        EdgeOfTrim { edge: heldFootage.edgeAfter; visible: heldFootage.edgeAfter.shown; width: parent.width / 2; height: parent.height; words: "In " }
    }
    Item { // what stands in the picture's place
        anchors.fill: screen
        Hatched { anchors.fill: parent; visible: heldFootage.state === "missing" }
        Column {
            anchors.centerIn: parent
            visible: heldFootage.state === "empty" || heldFootage.state === "missing" || heldFootage.state === "failed"
            width: parent.width - 2 * Theme.margin
            spacing: Theme.wide
            Words {
                width: parent.width
                horizontalAlignment: Text.AlignHCenter
                elide: Text.ElideNone
                wrapMode: Text.WordWrap
                text: heldFootage.state === "missing" ? "The file of this footage was not found" : heldFootage.state === "failed" ? heldFootage.words : "Pick a clip in the browser"
                color: heldFootage.state === "empty" ? Theme.text3 : Theme.text
                Accessible.role: Accessible.StaticText
                Accessible.name: text
            }
            Words { width: parent.width; horizontalAlignment: Text.AlignHCenter; visible: heldFootage.state === "missing"; text: heldFootage.path; elide: Text.ElideMiddle; color: Theme.text2; font.pixelSize: Theme.noteSize }
            PushButton { anchors.horizontalCenter: parent.horizontalCenter; visible: heldFootage.state === "missing"; text: "Find…"; onClicked: project.perform("sheet.findMissing") }
            PushButton { anchors.horizontalCenter: parent.horizontalCenter; visible: heldFootage.state === "failed"; text: "Try Again"; onClicked: heldFootage.tryAgain() }
        }
    }
    EyedropperArea { frame: screen; x: screen.x; y: screen.y; width: screen.width; height: screen.height }
    RateBadge { x: screen.x + Theme.gap; y: screen.y + Theme.gap; z: 3; player: project.sourcePlayer }
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
        clip: Theme.fieldEdge
        playhead: Theme.playhead
        onSkimmed: { heldFootage.noteSkim(); if (!waiting.running) waiting.start() }
        Component.onCompleted: setFootage(project.footage)
        Accessible.role: Accessible.Graphic
        Accessible.name: "Waveform" + (project.rangeWords ? ", " + project.rangeWords : "")
    }
    Transport {
        id: transport
        anchors.bottom: parent.bottom
        width: parent.width
        player: project.sourcePlayer
        view: screen
        what: "source"
        middle: aside.visible ? 64 + aside.width : 64
        wide: width > 800
        shortWords: project.rangeWords || lengthWords
        lengthWords: viewer.held ? [project.clock(project.sourcePlayer.spanEnd - project.sourcePlayer.spanStart), project.rangeWords].filter(one => one).join(" · ") : ""
    }
    Row {
        anchors.bottom: parent.bottom
        anchors.bottomMargin: (Theme.bar - Theme.tool) / 2
        x: parent.width / 2 - 64 - width
        visible: viewer.held && viewer.width > 480
        spacing: 2
        LaneButton { letter: "I"; name: "Mark start"; onClicked: project.perform("key.markStart") }
        LaneButton { letter: "O"; name: "Mark end"; onClicked: project.perform("key.markEnd") }
    }
    Row {
        id: aside
        anchors.bottom: parent.bottom
        anchors.bottomMargin: (Theme.bar - Theme.control) / 2
        x: parent.width / 2 + 64
        visible: viewer.held && viewer.width > 480
        IconButton { glyph: "corner-down-left"; name: "Insert at playhead"; command: "insert"; onClicked: project.perform("key.insert") }
        IconButton { glyph: "list-plus"; name: "Add to end"; command: "addToEnd"; onClicked: project.perform("key.addToEnd") }
    }
}
