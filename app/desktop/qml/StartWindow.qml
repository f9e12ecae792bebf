import QtQuick
import QtQuick.Window

// What opens where no project is open: the recent ones, New, Open.
Window {
    id: window

    property string pane: "" // "new" or "open"

    width: 760
    height: 480
    minimumWidth: 640
    minimumHeight: 420
    title: "Murbo"
    color: Theme.panel

    Item {
        anchors.fill: parent
        focus: true
        Keys.onEscapePressed: window.pane = ""

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
            delegate: Rectangle {
                id: line
                required property int index
                required property var modelData
                width: list.width
                height: 52
                radius: Theme.radius
                color: touch.containsMouse || list.activeFocus && list.currentIndex === index ? Theme.hover : "transparent"
                Accessible.role: Accessible.ListItem
                Accessible.name: modelData.name + (modelData.missing ? ", missing" : ", " + modelData.date)
                Icon { x: Theme.gap; anchors.verticalCenter: parent.verticalCenter; name: line.modelData.missing ? "file-question" : "film"; tint: line.modelData.missing ? Theme.notice : Theme.text2 }
                Words { x: 38; y: 7; width: parent.width - 140; text: line.modelData.name; color: line.modelData.missing ? Theme.text3 : Theme.text }
                Words { x: 38; y: 27; width: parent.width - 48; text: line.modelData.folder; color: Theme.text3; font.pixelSize: Theme.noteSize; elide: Text.ElideMiddle }
                Words { anchors.right: parent.right; anchors.rightMargin: Theme.gap; y: 8; text: line.modelData.missing ? "missing" : line.modelData.date; color: line.modelData.missing ? Theme.notice : Theme.text3; font.pixelSize: Theme.noteSize }
                MouseArea { id: touch; anchors.fill: parent; hoverEnabled: true; onClicked: desktop.openPath(line.modelData.path) }
            }
        }
        Words { anchors.centerIn: list; visible: list.count === 0; text: "What you open will be here"; color: Theme.text3 }

        Column {
            x: parent.width / 2 + Theme.margin
            y: 86
            width: parent.width / 2 - 40
            spacing: Theme.wide
            visible: window.pane === ""
            PushButton { width: parent.width; implicitHeight: 40; text: "New Project…"; main: true; onClicked: { window.pane = "new"; name.forceActiveFocus() } }
            PushButton { width: parent.width; implicitHeight: 40; text: "Open…"; onClicked: { window.pane = "open"; path.forceActiveFocus() } }
            Rectangle {
                width: parent.width
                height: 160
                radius: Theme.radius
                color: area.containsDrag ? Theme.hover : Theme.canvas
                border.color: area.containsDrag ? Theme.accent : Theme.line
                Words { anchors.centerIn: parent; width: parent.width - 2 * Theme.margin; horizontalAlignment: Text.AlignHCenter; wrapMode: Text.WordWrap; text: "Drop a project here to open it"; color: Theme.text3 }
                DropArea { id: area; anchors.fill: parent; onDropped: (drop) => { if (drop.hasUrls) drop.urls.forEach(url => desktop.openPath(desktop.pathOf(url))) } }
            }
        }
        Column {
            x: parent.width / 2 + Theme.margin
            y: 86
            width: parent.width / 2 - 40
            spacing: Theme.gap
            visible: window.pane === "new"
            Words { text: "Name"; color: Theme.text3; font.pixelSize: Theme.noteSize }
            Field { id: name; width: parent.width; name: "Name of the project"; onAccepted: desktop.create(text, folder.text) }
            Words { text: "In the folder"; color: Theme.text3; font.pixelSize: Theme.noteSize; topPadding: Theme.small }
            Field { id: folder; width: parent.width; name: "Folder"; glyph: "folder"; text: desktop.projectFolder; onAccepted: desktop.create(name.text, text) }
            Item { width: 1; height: Theme.gap }
            Row {
                anchors.right: parent.right
                spacing: Theme.gap
                PushButton { text: "Cancel"; onClicked: window.pane = "" }
                PushButton { text: "Create"; main: true; enabled: name.text.trim() !== ""; onClicked: desktop.create(name.text, folder.text) }
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
                PushButton { text: "Cancel"; onClicked: window.pane = "" }
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
        Words { x: 24; anchors.bottom: parent.bottom; anchors.bottomMargin: Theme.wide; text: desktop.version; color: Theme.text3; font.pixelSize: Theme.noteSize }
    }
}
