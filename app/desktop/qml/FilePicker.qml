import QtQuick

// Choosing files or a folder within the window.
Item {
    id: picker
    objectName: "filePicker"

    property string wanted: "movies"
    property var chosen: []
    signal picked(string path)
    function takeFocus() { list.forceActiveFocus(Qt.TabFocusReason) }

    height: 320
    Component.onCompleted: { folders.wanted = wanted; if (!folders.folder) folders.folder = "" }

    Row {
        id: head
        width: parent.width
        spacing: Theme.gap
        IconButton { glyph: "arrow-up"; name: "Folder above"; onClicked: folders.up() }
        Field { width: parent.width - Theme.control - Theme.gap; name: "Folder"; glyph: "folder"; text: folders.folder; onAccepted: folders.folder = text }
    }
    Rectangle {
        anchors.top: head.bottom
        anchors.topMargin: Theme.gap
        anchors.bottom: parent.bottom
        width: parent.width
        radius: Theme.radius
        color: Theme.canvas
        border.color: list.activeFocus ? Theme.accent : Theme.line
        ListView {
            id: list
            anchors.fill: parent
            anchors.margins: Theme.small
            clip: true
            model: folders
            activeFocusOnTab: true
            boundsBehavior: Flickable.StopAtBounds
            Accessible.role: Accessible.List
            Accessible.name: "Files to choose"
            Keys.onReturnPressed: (event) => enter(event)
            Keys.onEnterPressed: (event) => enter(event)
            // With Ctrl it is for the sheet that this stands in.
            function enter(event) { if (event.modifiers & Qt.ControlModifier) event.accepted = false; else take(currentIndex) }
            Keys.onSpacePressed: take(currentIndex)
            Keys.onPressed: (event) => { if (event.key === Qt.Key_Backspace) { folders.up(); event.accepted = true } }
            Connections { target: folders; function onFolderChanged() { list.currentIndex = 0 } }
            function take(row) { folders.isFolder(row) ? folders.folder = folders.pathOf(row) : pickFile(row) }
            // A row may be gone once the index has moved: what it asks for is done here.
            function press(row) { currentIndex = row; take(row) }
            // The next one is at hand, to be taken too.
            function pickFile(row) { picker.picked(folders.pathOf(row)); if (row + 1 < count) currentIndex = row + 1 }
            delegate: Rectangle {
                id: line
                required property int index
                required property string name
                required property string detail
                required property bool folder
                required property bool project
                required property string path
                readonly property bool taken: picker.chosen.indexOf(path) >= 0
                width: list.width
                height: Theme.row
                radius: Theme.small
                color: taken ? Theme.pressed : list.activeFocus && list.currentIndex === index || touch.containsMouse ? Theme.hover : "transparent"
                Accessible.role: Accessible.ListItem
                Accessible.name: name + (taken ? ", chosen" : "")
                Icon { x: Theme.gap; anchors.verticalCenter: parent.verticalCenter; side: 15; name: line.folder ? "folder" : line.project ? "film" : line.taken ? "check" : "video"; tint: line.taken ? Theme.accent : Theme.text3 }
                Words { x: 32; height: parent.height; width: parent.width - 130; text: line.name }
                Words { anchors.right: parent.right; anchors.rightMargin: Theme.gap; height: parent.height; text: line.detail; color: Theme.text3; font.pixelSize: Theme.noteSize }
                MouseArea { id: touch; anchors.fill: parent; hoverEnabled: true; onClicked: list.press(line.index) }
            }
        }
        Words { anchors.centerIn: parent; visible: list.count === 0; text: folders.problem || "Nothing here to choose"; color: Theme.text3 }
    }
}
