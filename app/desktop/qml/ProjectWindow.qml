import QtQuick
import QtQuick.Window

// The window of one project: its regions, and what lies over them.
Window {
    id: window

    property bool wantsTall: true
    property real timelineHeight: 0
    property bool showsSource: false // with both viewers in one region
    readonly property var plan: planner.plan(width, height, project.upright, wantsTall, inspectorPanel.shown, timelineHeight)

    width: 1280
    height: 800
    minimumWidth: 1024
    minimumHeight: 640
    title: project.name
    color: Theme.canvas

    Connections {
        target: project
        function onVerb(name) { window.carryOut(name) }
        function onFocusChanged() { window.showsSource = project.focus === "source" }
        function onToast(words, button) { toast.show(words, button) }
        function onBeeped() { toast.shake() }
    }
    Connections {
        target: copySheet
        function onMade(path, instead) {
            project.sheet = ""
            if (!desktop.openPath(path)) project.toast(desktop.problem, "")
            else if (instead) window.close()
        }
    }
    function carryOut(name) {
        if (name === "tall") wantsTall = !wantsTall
        else if (name === "zoomIn" || name === "zoomOut") timeline.zoomStep(name === "zoomIn")
        else if (name === "zoomFit") timeline.fit()
        else if (name === "search") (library.shown ? shelf : browser).search()
        else if (name === "nextRegion" || name === "previousRegion") regions.go(name === "nextRegion" ? 1 : -1)
        else if (name === "newProject" || name === "openProject") desktop.showStart()
        else if (name === "menus") topBar.openMenus()
        else if (name === "closeWindow") window.close()
        else if (name === "caption.edit") timeline.editCaption()
        else if (name === "escape" && !transcript.giveBack() && !timeline.cancelDrag()) regions.home()
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
            visible: !window.plan.tabs || window.showsSource
            x: window.plan.source.x; y: window.plan.source.y; width: window.plan.source.width; height: window.plan.source.height }
        VideoViewer { id: video; tabbed: window.plan.tabs; tall: window.plan.tall
            visible: !window.plan.tabs || !window.showsSource
            x: window.plan.video.x; y: window.plan.video.y; width: window.plan.video.width; height: window.plan.video.height }
        TimelinePanel { id: timeline
            x: window.plan.timeline.x; y: window.plan.timeline.y; width: window.plan.timeline.width; height: window.plan.timeline.height }
        Inspector { id: inspector; visible: inspectorPanel.shown
            x: window.plan.inspector.x; y: window.plan.inspector.y; width: window.plan.inspector.width; height: window.plan.inspector.height }
        Splitter {
            x: 0; width: timeline.width; y: timeline.y - height / 2
            onMoved: (y) => window.timelineHeight = window.height - y
            onReset: window.timelineHeight = 0
        }
    }

    QtObject {
        id: regions
        readonly property var ring: [sidebar, library.shown ? shelf : browser, window.showsSource && window.plan.tabs ? source : video, timeline].concat(inspectorPanel.shown ? [inspector] : [])
        property int at: 3
        function go(by) {
            at = (at + by + ring.length) % ring.length
            ring[at].takeFocus()
        }
        function home() { timeline.takeFocus() }
    }

    DropArea {
        anchors.fill: parent
        keys: ["text/uri-list"]
        onDropped: (drop) => { if (drop.hasUrls) sheets.drop(drop.urls) }
    }
    SheetLayer { id: sheets; anchors.fill: parent; picture: video.frame }
    Toast { id: toast; anchors.horizontalCenter: parent.horizontalCenter; anchors.horizontalCenterOffset: (timeline.width - window.width) / 2; y: timeline.y + Theme.small }
    Component.onCompleted: timeline.takeFocus()
}
