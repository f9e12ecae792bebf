import QtQuick
import Murbo 1.0

// The timeline with its tools, headers and what moves over it.
FocusScope {
    id: panel

    readonly property bool wideHeaders: width > 700
    readonly property int headerWidth: wideHeaders ? Theme.headers : 72
    readonly property real toolsEnd: tooling.x + tooling.width
    signal skimmed()
    signal filesLeft(var paths) // dropped, and nothing for the timeline
    function fit() { view.fit() }
    function zoomStep(into) { view.zoomStep(into) }
    function cancelDrag() { return editing.giveBack() || view.cancelDrag() }
    function editCaption() { view.editPicked() }
    function walk(way, more) { view.walk(way, more) }
    function goToPick() { view.goToPick() }
    function openMenu() { view.askMenu() }
    function takeFocus() { view.forceActiveFocus(Qt.TabFocusReason) }

    Connections { target: settingsSheet; function onChanged() { view.refresh() } }
    Rectangle { anchors.fill: parent; color: Theme.canvas }
    Rectangle {
        id: tools
        width: parent.width
        height: Theme.bar
        color: Theme.panel
        Accessible.role: Accessible.ToolBar
        Accessible.name: "Timeline tools"

        Row {
            id: tooling
            x: Theme.wide
            height: parent.height
            spacing: Theme.small
            Words { text: project.videoTag; font.weight: Font.DemiBold; height: parent.height }
            Words { text: project.videoTitle; color: Theme.text2; height: parent.height; width: Math.min(implicitWidth, panel.width - 560); leftPadding: Theme.small; rightPadding: Theme.gap }
            Repeater {
                model: [
                    { id: "select", glyph: "mouse-pointer-2", name: "Select" },
                    { id: "trim", glyph: "move-horizontal", name: "Trim" },
                    { id: "blade", glyph: "scissors", name: "Blade" },
                    { id: "hand", glyph: "hand", name: "Hand" }]
                IconButton {
                    required property var modelData
                    glyph: modelData.glyph
                    name: modelData.name
                    command: modelData.id
                    toggles: true
                    checked: project.tool === modelData.id
                    side: 16
                    anchors.verticalCenter: parent ? parent.verticalCenter : undefined
                    onClicked: project.setTool(modelData.id)
                }
            }
            Item { width: Theme.gap; height: 1 }
            IconButton { glyph: "scan-line"; name: "Skimming"; command: "skimming"; toggles: true; checked: project.skimming; side: 16; anchors.verticalCenter: parent.verticalCenter; onClicked: project.perform("key.skimming") }
            IconButton { glyph: "magnet"; name: "Snapping"; command: "snapping"; toggles: true; checked: project.snapping; side: 16; anchors.verticalCenter: parent.verticalCenter; onClicked: project.perform("key.snapping") }
        }
        Row {
            anchors.right: parent.right
            anchors.rightMargin: Theme.wide
            height: parent.height
            spacing: Theme.small
            Words { text: project.videoWords; color: Theme.text3; height: parent.height; rightPadding: Theme.gap; visible: panel.width > 620 }
            IconButton { id: looks; glyph: "sliders-horizontal"; name: "How the timeline looks"; side: 16; anchors.verticalCenter: parent.verticalCenter; checked: popover.visible; onClicked: popover.visible ? popover.close() : popover.openAt(looks) }
            IconButton { glyph: "minus"; name: "Zoom out"; keys: "Ctrl+−"; side: 14; anchors.verticalCenter: parent.verticalCenter; onClicked: view.zoomStep(false) }
            Slide { name: "Zoom"; width: 84; anchors.verticalCenter: parent.verticalCenter; from: -3; to: 5
                    value: Math.log(Math.max(project.editor.zoom, 0.01)) / Math.LN2
                    onMoved: view.zoomRound(Math.pow(2, value) / project.editor.zoom, Math.max(Math.min(view.playheadX, view.width), 0)) }
            IconButton { glyph: "plus"; name: "Zoom in"; keys: "Ctrl++"; side: 14; anchors.verticalCenter: parent.verticalCenter; onClicked: view.zoomStep(true) }
        }
        Rectangle { anchors.bottom: parent.bottom; width: parent.width; height: 1; color: Theme.line }
    }

    Item {
        id: headers
        anchors.top: tools.bottom
        anchors.bottom: parent.bottom
        width: panel.headerWidth
        clip: true
        Rectangle { width: parent.width; height: 22; color: Theme.panel; z: 1 }
        Repeater {
            model: view.tracks
            Rectangle {
                required property var modelData
                y: modelData.top - view.rowsAbove
                width: headers.width - 1
                height: modelData.height
                color: "#131417"
                Accessible.role: Accessible.StaticText
                Accessible.name: modelData.name
                Words { x: Theme.gap; height: parent.height; text: parent.modelData.name; color: Theme.text2; font.pixelSize: 12; width: parent.width - (panel.wideHeaders ? 60 : 2 * Theme.small) }
                IconButton {
                    visible: parent.modelData.name === "Captions" && panel.wideHeaders
                    anchors.right: parent.right
                    anchors.rightMargin: Theme.small
                    anchors.verticalCenter: parent.verticalCenter
                    width: Theme.tool
                    height: Theme.tool
                    glyph: "eye"
                    side: 14
                    tint: captions.on ? Theme.text2 : Theme.notice
                    name: captions.on ? "Hide captions" : "Show captions"
                    onClicked: captions.on = !captions.on
                }
                Row {
                    anchors.right: parent.right
                    anchors.rightMargin: Theme.small
                    anchors.verticalCenter: parent.verticalCenter
                    visible: parent.modelData.lane !== "" && panel.wideHeaders
                    spacing: 2
                    LaneButton { toggles: true; letter: "M"; name: "Mute " + parent.parent.modelData.name; on: project.mutedLanes.indexOf(parent.parent.modelData.lane) >= 0; lit: Theme.notice
                                 onClicked: project.toggleMute(parent.parent.modelData.lane) }
                    LaneButton { toggles: true; letter: "S"; name: "Solo " + parent.parent.modelData.name; on: project.soloLanes.indexOf(parent.parent.modelData.lane) >= 0; lit: Theme.accent
                                 onClicked: project.toggleSolo(parent.parent.modelData.lane) }
                }
            }
        }
    }
    TimelineView {
        id: view
        anchors.top: tools.bottom
        anchors.bottom: scroller.top
        anchors.left: headers.right
        anchors.right: parent.right
        editor: project.editor
        colours: Theme.timeline
        appearance: timelineAppearance
        arrivals: mediaArrivals
        focus: true
        Accessible.role: Accessible.List
        Accessible.name: project.videoTag ? "Timeline of " + project.videoTag + ", " + project.videoWords : "Timeline"
        Component.onCompleted: setFootage(project.footage)
        onPlayheadChanged: { if (project.player.rate !== 0) follow(); panel.skimmed() }
        onEditAsked: (place, line, piece) => editing.start(place, line, piece)
        Keys.onReturnPressed: editPicked()
        Keys.onEnterPressed: editPicked()
        onSpanChanged: editing.end(true)
        onMenuAsked: (x, y, kind) => { const at = mapToItem(null, x, y); context.openPoint(at.x, at.y, project.contextMenu(kind)) }

        Rectangle { visible: view.skimmerX >= 0; x: Math.round(view.skimmerX); width: 1; height: parent.height; color: Theme.text }
        Rectangle { visible: view.bladeX >= 0; x: view.bladeX; y: 22; width: 1; height: parent.height; color: Theme.notice }
        Badge { text: view.hint; x: Math.min(view.hintAt.x + Theme.gap, view.width - width - Theme.small); y: Math.max(view.hintAt.y - height - 2, 0) }
        Rectangle { visible: view.dropX >= 0; x: view.dropX - 1; y: 22; width: 3; height: parent.height; color: Theme.picked }
        Rectangle { visible: view.snapX >= 0; x: view.snapX; y: 22; width: 1; height: parent.height; color: Theme.accent }
        Rectangle { visible: view.band.width > 0 || view.band.height > 0; x: view.band.x; y: view.band.y; width: view.band.width; height: view.band.height
                    color: "#2063AEFF"; border.color: Theme.accent }
        Rectangle { visible: project.cuts > 0; x: view.playheadX - 1; width: 2; height: parent.height; color: Theme.playhead
            Rectangle { x: -5; width: 12; height: 12; radius: 6; color: Theme.playhead } }
        Rectangle { anchors.fill: parent; color: "transparent"; border.color: Theme.accent; border.width: Theme.ring; visible: false }
    }
    Rectangle { // how far down the rows are scrolled
        readonly property real shown: view.height - 22
        readonly property real all: Math.max(view.contentHeight - 22, 1)
        visible: view.contentHeight > view.height + 1
        anchors.right: parent.right
        y: view.y + 22 + view.rowsAbove / all * shown
        width: 6
        height: Math.max(shown / all * shown, 24)
        radius: 3
        color: rowGrab.containsMouse || rowGrab.pressed ? Theme.disabled : Theme.pressed
        MouseArea { id: rowGrab; property bool beside: true; anchors.fill: parent; anchors.leftMargin: -4; hoverEnabled: true; preventStealing: true
            property real from: 0
            onPressed: (mouse) => from = mouse.y
            onPositionChanged: (mouse) => { if (pressed) view.rowsAbove += (mouse.y - from) * parent.all / parent.shown } }
    }
    // Beside the view, whose parts are its blocks alone to a screen reader.
    Item { anchors.fill: view; CaptionEditor { id: editing; onEnded: view.forceActiveFocus(Qt.OtherFocusReason) } }
    DashedPlace {
        x: view.x + Theme.wide
        y: view.y + 22 + 3 + Theme.gap
        width: Math.min(view.width - 2 * Theme.wide, 520)
        height: 72
        visible: project.cuts === 0
        text: project.videoTag ? "Put a clip in with E or W, or drop footage here" : "Pick a clip and press E: a video begins with it"
    }
    Item {
        id: scroller
        anchors.bottom: parent.bottom
        anchors.left: headers.right
        anchors.right: parent.right
        height: 10
        readonly property real share: Math.min(view.width / Math.max(view.contentWidth, 1), 1)
        Rectangle {
            visible: scroller.share < 0.999 // all of it in view is more by a rounding
            y: 2
            height: 6
            radius: 3
            x: view.scroll * (view.contentWidth > 0 ? scroller.width / view.contentWidth : 0) * project.editor.zoom * 20
            width: Math.max(scroller.share * scroller.width, 24)
            color: grab.containsMouse || grab.pressed ? Theme.disabled : Theme.pressed
            MouseArea { id: grab; property bool beside: true; anchors.fill: parent; hoverEnabled: true
                property real from: 0
                onPressed: (mouse) => from = mouse.x
                onPositionChanged: (mouse) => { if (pressed) view.scroll += (mouse.x - from) / scroller.share / (project.editor.zoom * 20) } }
        }
    }
    DropArea {
        anchors.fill: view
        keys: ["murbo/library"]
        onDropped: (drop) => library.addAt(drop.source.libraryRow, view.timeAt(drop.x))
        Rectangle { visible: parent.containsDrag; x: parent.drag.x; width: 2; height: parent.height; color: Theme.picked }
    }
    MenuList { id: context }
    TimelineLooks { id: popover }

    // Clips out of the browser, whose carrier has a property "dragged", and files out of another program.
    DropArea {
        id: landing
        anchors.fill: view
        function kindOf(drag) { return drag.source && drag.source.dragged ? drag.source.dragged.kind : drag.hasUrls ? "files" : "" }
        onEntered: (drag) => { drag.accepted = kindOf(drag) !== ""; if (drag.accepted) view.dropMoves(kindOf(drag), drag.x) }
        onPositionChanged: (drag) => view.dropMoves(kindOf(drag), drag.x)
        onExited: view.dropLeaves()
        onDropped: (drop) => {
            if (kindOf(drop) === "clips") view.dropClips(drop.x)
            else if (drop.hasUrls) {
                const paths = drop.urls.map(url => desktop.pathOf(url)).filter(path => path)
                const left = view.dropFiles(paths, drop.x, drop.y)
                if (left.length > 0) panel.filesLeft(left)
            }
        }
    }
}
