import QtQuick
import QtQuick.Window

// What opens where no project is open: the recent ones, New, Open.
Window {
    id: window

    property string pane: "" // "new" or "open"
    property var footage: [] // to be added to the new project
    function take(urls) {
        const paths = urls.map(url => desktop.pathOf(url)).filter(path => path)
        const projects = paths.filter(path => path.endsWith(".mbproj"))
        projects.forEach(path => desktop.openPath(path))
        const rest = paths.filter(path => !path.endsWith(".mbproj"))
        if (rest.length) begin(rest)
    }
    function begin(files) {
        desktop.forgetProblem()
        footage = files
        pane = "new"
        folder.folder = desktop.projectFolder
        name.text = desktop.freeName(folder.folder)
        name.forceActiveFocus()
        name.selectAll()
    }
    function create() { desktop.create(name.text, folder.folder, footage) }
    function back() { pane = ""; (list.count > 0 ? list : make).forceActiveFocus(Qt.TabFocusReason) }
    function choose() { desktop.forgetProblem(); asking.enabled = true; chooser.choose("folder", "Open a Project") }
    onVisibleChanged: { footage = []; back() }

    width: 760
    height: 480
    minimumWidth: 640
    minimumHeight: 420
    title: "Murbo"
    color: Theme.panel

    Item {
        anchors.fill: parent
        focus: true
        Keys.onEscapePressed: window.back()
        Keys.onPressed: (event) => {
            if (!(event.modifiers & Qt.ControlModifier)) return
            event.accepted = event.key === Qt.Key_N || event.key === Qt.Key_O
            if (event.key === Qt.Key_N) window.begin([])
            if (event.key === Qt.Key_O) window.choose()
        }

        Words { x: 24; y: 20; height: 34; text: "Murbo"; font.pixelSize: Theme.startSize; font.weight: Font.DemiBold }
        Words { x: 24; y: 66; text: "Recent"; color: Theme.text3; font.weight: Font.DemiBold; font.pixelSize: Theme.noteSize }
        ListView {
            id: list
            x: Theme.margin
            y: 86
            width: parent.width / 2 - Theme.margin
            height: parent.height - 86 - 40
            clip: true
            model: desktop.recent
            activeFocusOnTab: true
            boundsBehavior: Flickable.StopAtBounds
            Accessible.role: Accessible.List
            Accessible.name: "Recent projects"
            Keys.onReturnPressed: if (currentItem) desktop.openPath(currentItem.modelData.path)
            Keys.onDeletePressed: forget(currentIndex)
            // The list is new after it: the place in it stays.
            function forget(row) {
                if (row < 0 || row >= count) return
                desktop.forgetRecent(desktop.recent[row].path)
                currentIndex = Math.min(row, count - 1)
            }
            delegate: Rectangle {
                id: line
                required property int index
                required property var modelData
                readonly property bool reached: list.activeFocus && list.currentIndex === index
                width: list.width
                height: 64
                radius: Theme.radius
                color: over.hovered || reached ? Theme.hover : "transparent"
                Accessible.role: Accessible.ListItem
                Accessible.name: modelData.name + (modelData.missing ? ", missing" : ", " + modelData.date)
                Rectangle {
                    x: Theme.gap
                    y: 4
                    width: 72
                    height: 56
                    radius: Theme.small
                    color: Theme.canvas
                    Icon { anchors.centerIn: parent; visible: picture.status !== Image.Ready || picture.implicitWidth < 2; name: line.modelData.missing ? "file-question" : "film"; tint: line.modelData.missing ? Theme.notice : Theme.text3 }
                    Image { id: picture; anchors.fill: parent; asynchronous: true; fillMode: Image.PreserveAspectFit; source: line.modelData.picture; sourceSize: Qt.size(144, 144) }
                }
                Words { x: 92; y: 13; width: parent.width - 180; text: line.modelData.name; color: line.modelData.missing ? Theme.text3 : Theme.text }
                Words { x: 92; y: 33; width: parent.width - 92 - Theme.bar; text: line.modelData.folder; color: Theme.text3; font.pixelSize: Theme.noteSize; elide: Text.ElideMiddle }
                Words { anchors.right: parent.right; anchors.rightMargin: Theme.gap; y: 14; text: line.modelData.missing ? "missing" : line.modelData.date; color: line.modelData.missing ? Theme.notice : Theme.text3; font.pixelSize: Theme.noteSize }
                HoverHandler { id: over }
                MouseArea { id: touch; anchors.fill: parent; hoverEnabled: true; onClicked: desktop.openPath(line.modelData.path) }
                IconButton { visible: over.hovered || line.reached || line.modelData.missing; anchors.right: parent.right; anchors.rightMargin: Theme.small; anchors.bottom: parent.bottom; anchors.bottomMargin: 4
                             implicitWidth: Theme.tool; implicitHeight: Theme.tool; side: 13; glyph: "x"; name: "Take " + line.modelData.name + " off the list"; keys: "Delete"; focusPolicy: Qt.NoFocus; onClicked: Qt.callLater(list.forget, line.index) }
            }
        }
        Words { anchors.centerIn: list; visible: list.count === 0; text: "What you open will be here"; color: Theme.text3 }

        Column {
            x: parent.width / 2 + Theme.margin
            y: 86
            width: parent.width / 2 - 40
            spacing: Theme.wide
            visible: window.pane === ""
            PushButton { id: make; width: parent.width; implicitHeight: 40; text: "New Project…"; main: true; keys: "Ctrl+N"; onClicked: window.begin([]) }
            PushButton { width: parent.width; implicitHeight: 40; text: "Open…"; keys: "Ctrl+O"; onClicked: window.choose() }
            Rectangle {
                width: parent.width
                height: 160
                radius: Theme.radius
                color: area.containsDrag ? Theme.hover : Theme.canvas
                border.color: area.containsDrag ? Theme.accent : "transparent"
                DashedPlace { anchors.fill: parent; visible: !area.containsDrag }
                Words { anchors.centerIn: parent; width: parent.width - 2 * Theme.margin; horizontalAlignment: Text.AlignHCenter; wrapMode: Text.WordWrap; text: "Drop footage here to start a project"; color: Theme.text3 }
            }
        }
        Column {
            x: parent.width / 2 + Theme.margin
            y: 86
            width: parent.width / 2 - 40
            spacing: Theme.gap
            visible: window.pane === "new"
            Words { text: "Name"; color: Theme.text3; font.pixelSize: Theme.noteSize }
            Field { id: name; width: parent.width; name: "Name of the project"; onAccepted: window.create() }
            Words { visible: window.footage.length > 0; width: parent.width; color: Theme.text2; font.pixelSize: Theme.noteSize; elide: Text.ElideMiddle
                    text: window.footage.length === 1 ? "With " + window.footage[0].split("/").pop() : "With " + window.footage.length + " files and folders" }
            Words { visible: folder.visible; text: "In the folder"; color: Theme.text3; font.pixelSize: Theme.noteSize; topPadding: Theme.small }
            FolderField { id: folder; width: parent.width; visible: window.footage.length === 0; folder: desktop.projectFolder; onAccepted: window.create() }
            Item { width: 1; height: Theme.gap }
            Row {
                anchors.right: parent.right
                spacing: Theme.gap
                PushButton { text: "Cancel"; onClicked: window.back() }
                PushButton { text: "Create"; main: true; enabled: name.text.trim() !== ""; onClicked: window.create() }
            }
        }
        Column {
            x: parent.width / 2 + Theme.margin
            y: 86
            width: parent.width / 2 - 40
            spacing: Theme.gap
            visible: window.pane === "open"
            Words { text: "Path of the project (a folder ending in .mbproj)"; color: Theme.text3; font.pixelSize: Theme.noteSize }
            Field { id: path; width: parent.width; name: "Path of the project"; text: desktop.projectFolder + "/"; onAccepted: desktop.openPath(text) }
            Row {
                anchors.right: parent.right
                spacing: Theme.gap
                PushButton { text: "Cancel"; onClicked: window.back() }
                PushButton { text: "Open"; main: true; onClicked: desktop.openPath(path.text) }
            }
        }
        Rectangle {
            x: parent.width / 2 + Theme.margin
            width: parent.width / 2 - 40
            y: parent.height - height - 48
            height: why.implicitHeight + Theme.margin
            visible: desktop.problem !== ""
            radius: Theme.radius
            color: Theme.badCard
            Words { id: why; x: Theme.gap; y: Theme.gap; width: parent.width - Theme.margin; text: desktop.problem; wrapMode: Text.WordWrap; elide: Text.ElideNone }
        }
        Words { id: version; x: 24; anchors.bottom: parent.bottom; anchors.bottomMargin: Theme.wide; text: desktop.version; color: Theme.text3; font.pixelSize: Theme.noteSize }
        Words { anchors.left: version.right; anchors.leftMargin: Theme.wide; anchors.right: parent.right; anchors.rightMargin: 24; anchors.verticalCenter: version.verticalCenter; text: desktop.whisper || "whisper ready"; color: desktop.whisper ? Theme.notice : Theme.text3; font.pixelSize: Theme.noteSize }
        DropArea { id: area; anchors.fill: parent; onDropped: (drop) => { if (drop.hasUrls) window.take(drop.urls) } }
        Connections {
            id: asking
            target: chooser
            enabled: false
            function onChosen(kind, paths) { enabled = false; if (paths.length) desktop.openPath(paths[0]) }
            function onUnavailable(kind) { enabled = false; window.pane = "open"; path.forceActiveFocus() }
        }
    }
}
