import QtQuick
import QtQuick.Window

// The window of one project: its regions, and what lies over them.
Window {
    id: window

    property bool wantsTall: true
    property bool showsSource: false // with both viewers in one region
    property bool fullViewer: false // the video's viewer alone, on the whole screen
    property int before: Window.Windowed
    readonly property var plan: { splitters.turn; return planner.plan(width, height, project.upright, wantsTall, inspectorPanel.shown) }

    width: 1280
    height: 800
    minimumWidth: 1024
    minimumHeight: 640
    title: project.name
    color: Theme.canvas

    Connections {
        target: project
        function onVerb(name) { window.carryOut(name) }
        function onSheetChanged() { Qt.callLater(regions.giveBack) }
        function onFocusChanged() { window.showsSource = project.focus === "source" }
        function onToast(words, button) { toast.show(words, button) }
        function onBeeped() { toast.shake() }
    }
    Connections {
        target: copySheet
        function onMade(path, instead) {
            project.sheet = ""
            if (desktop.openPath(path) && instead) window.close()
        }
    }
    function carryOut(name) {
        if (name === "tall") wantsTall = !wantsTall
        else if (name === "safeAreas") viewerAids.safeAreas = !viewerAids.safeAreas
        else if (name === "droppedFrames") viewerAids.droppedFrames = !viewerAids.droppedFrames
        else if (name === "fullViewer") fullViewer ? leaveFull() : enterFull()
        else if (name === "zoomIn" || name === "zoomOut") timeline.zoomStep(name === "zoomIn")
        else if (name === "zoomFit") timeline.fit()
        else if (name === "search") (library.shown ? shelf : browser).search()
        else if (name === "page") (library.shown ? shelf : browser).takeFocus()
        else if (name === "nextRegion" || name === "previousRegion") regions.go(name === "nextRegion" ? 1 : -1)
        else if (name === "newProject" || name === "openProject") desktop.showStart()
        else if (name === "menus") topBar.openMenus()
        else if (name.startsWith("walk.")) timeline.walk(name.split(".")[1], name.endsWith(".more"))
        else if (name === "goToPick") timeline.goToPick()
        else if (name === "contextMenu") menuOwner().openMenu()
        else if (name === "closeWindow") window.close()
        else if (name === "caption.edit") timeline.editCaption()
        else if (name === "escape") letGo()
    }

    // What has a menu and holds the focus; else the timeline.
    function menuOwner() {
        for (let item = activeFocusItem; item; item = item.parent)
            if (item.openMenu) return item
        return timeline
    }
    function enterFull() {
        before = visibility
        fullViewer = true
        showFullScreen()
    }
    function leaveFull() {
        fullViewer = false
        if (before === Window.Maximized) showMaximized()
        else if (before !== Window.FullScreen) showNormal()
    }
    // A drag that is open is put back, else an overlay goes, else all is let go of.
    function letGo() {
        if (eyedropper.cancel() || transcript.giveBack() || source.cancelDrag() || video.cancelDrag() || timeline.cancelDrag()) return
        if (fullViewer) return leaveFull()
        if (project.editor.framing) project.editor.framing = false
        else project.perform("clear")
        regions.home()
    }

    FocusScope {
        id: scene
        anchors.fill: parent
        focus: true

        TopBar { id: topBar; width: parent.width; height: Theme.bar; compact: window.plan.compact }
        Sidebar { id: sidebar; rail: window.plan.compact
            x: window.plan.sidebar.x; y: window.plan.sidebar.y; width: window.plan.sidebar.width; height: window.plan.sidebar.height }
        Browser { id: browser; visible: !library.shown
            x: window.plan.browser.x; y: window.plan.browser.y; width: window.plan.browser.width; height: window.plan.browser.height }
        LibraryPage { id: shelf; visible: library.shown; x: browser.x; y: browser.y; width: browser.width; height: browser.height }
        SourceViewer { id: source; tabbed: window.plan.tabs
            visible: !window.plan.tabs || window.showsSource || heldFootage.showsEdge
            onKeysLeft: regions.home()
            x: window.plan.source.x; y: window.plan.source.y; width: window.plan.source.width; height: window.plan.source.height }
        VideoViewer { id: video; tabbed: window.plan.tabs && !window.fullViewer; tall: window.plan.tall
            readonly property rect place: window.fullViewer ? Qt.rect(0, 0, window.width, window.height) : window.plan.video
            visible: window.fullViewer || !window.plan.tabs || !window.showsSource && !heldFootage.showsEdge
            z: window.fullViewer ? 1 : 0
            x: place.x; y: place.y; width: place.width; height: place.height
            Rectangle { anchors.fill: parent; z: -1; color: "black"; visible: window.fullViewer } }
        TimelinePanel { id: timeline
            onFilesLeft: (paths) => sheets.take(paths)
            onSkimmed: video.noteSkim()
            x: window.plan.timeline.x; y: window.plan.timeline.y; width: window.plan.timeline.width; height: window.plan.timeline.height }
        Inspector { id: inspector; visible: inspectorPanel.shown
            x: window.plan.inspector.x; y: window.plan.inspector.y; width: window.plan.inspector.width; height: window.plan.inspector.height }
        Splitter { region: "timeline"; name: "Height of the timeline"; size: timeline.height
            y: timeline.y - 1 - reach; width: timeline.width }
        Splitter { region: "sidebar"; name: "Width of the sidebar"; upright: true; before: true; size: sidebar.width; visible: !window.plan.compact
            x: browser.x - 1 - reach; y: sidebar.y; height: sidebar.height }
        Splitter { region: "browser"; name: "Width of the browser"; upright: true; before: true; size: browser.width
            x: source.x - 1 - reach; y: browser.y; height: browser.height }
        Splitter { region: "source"; name: "Width of the source viewer"; upright: true; before: true; size: source.width; visible: !window.plan.tabs && !window.plan.tall && !window.fullViewer
            x: video.x - 1 - reach; y: source.y; height: source.height }
        Splitter { region: "tall"; name: "Width of the tall viewer"; upright: true; size: video.width; visible: window.plan.tall && !window.fullViewer
            x: video.x - 1 - reach; y: video.y; height: video.height }
        Splitter { region: "inspector"; name: "Width of the inspector"; upright: true; size: inspector.width; visible: inspectorPanel.shown
            x: inspector.x - 1 - reach; y: inspector.y; height: inspector.height }
    }

    QtObject {
        id: regions
        readonly property var ring: [sidebar, library.shown ? shelf : browser, window.showsSource && window.plan.tabs ? source : video, timeline].concat(inspectorPanel.shown ? [inspector] : [])
        property Item hadKeys: null // before a sheet came
        // Where the keys are; -1 for nowhere.
        function at() {
            for (let item = window.activeFocusItem; item && ring; item = item.parent) if (ring.includes(item)) return ring.indexOf(item)
            return -1
        }
        function go(by) {
            const next = ring[((at() < 0 ? 3 : at()) + by + ring.length) % ring.length]
            next.takeFocus()
            if (next === timeline) project.setFocus("video")
        }
        function note() {
            if (project.sheet || at() < 0) return
            hadKeys = window.activeFocusItem
            // Rows come and go: it is their list that had them.
            for (let item = hadKeys; item; item = item.parent) if (item.takesArrows) { hadKeys = item; break }
        }
        function giveBack() {
            if (project.sheet || project.menuOpen || at() >= 0) return
            if (hadKeys && hadKeys.visible) hadKeys.forceActiveFocus(Qt.OtherFocusReason)
            else home() // what had them has gone
        }
        function home() { timeline.takeFocus() }
    }

    onActiveFocusItemChanged: regions.note()

    DropArea {
        anchors.fill: parent
        keys: ["text/uri-list"]
        onDropped: (drop) => { if (drop.hasUrls) sheets.drop(drop.urls) }
    }
    SheetLayer { id: sheets; anchors.fill: parent; picture: video.frame }
    Toast { // beside what a sheet says, and beside the tools where there is room
        id: toast
        readonly property real overTimeline: Math.max((timeline.width - width) / 2, Math.min(timeline.toolsEnd + Theme.gap, timeline.width - width - Theme.gap))
        x: project.sheet ? (window.width - width) / 2 : timeline.x + overTimeline
        y: project.sheet ? Theme.small : timeline.y + Theme.small
    }
    Component.onCompleted: timeline.takeFocus()
}
