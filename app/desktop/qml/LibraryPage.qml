import QtQuick
import Murbo 1.0

// A page of the library in the browser's place: playbooks as they look, sounds as they sound.
Rectangle {
    id: page

    function search() { field.forceActiveFocus(Qt.ShortcutFocusReason); field.selectAll() }
    function takeFocus() { list.forceActiveFocus(Qt.TabFocusReason) }

    function carryOut(verb) {
        if (verb === "library.add") library.add(list.currentIndex)
        if (verb === "library.listen") library.play(list.currentIndex)
        if (verb === "library.show") library.openFolder(list.currentIndex)
    }
    // Rows that were about to change do so as the index moves: the one that asked for it may be gone after that.
    function reach(index) { list.currentIndex = index; list.forceActiveFocus() }
    function openMenu() {
        const item = list.currentItem
        const at = item ? item.mapToItem(null, Theme.margin, item.height / 2) : list.mapToItem(null, Theme.margin, Theme.margin)
        askMenu(at.x, at.y)
    }
    function askMenu(px, py) { context.openPoint(px, py, project.contextMenu(library.ofSounds ? "sound" : "playbook")) }
    Connections { target: project; function onVerb(name) { page.carryOut(name) } }
    MenuList { id: context }

    color: Theme.panel

    Field {
        id: field
        x: Theme.gap
        y: Theme.gap
        width: parent.width - 3 * Theme.gap - Theme.control
        glyph: "search"
        name: "Search the library"
        placeholderText: "Search"
        text: library.words
        onTextEdited: library.words = text
        Keys.onEscapePressed: { library.words = ""; list.forceActiveFocus() }
        Keys.onDownPressed: list.forceActiveFocus()
    }
    IconButton { anchors.right: parent.right; anchors.rightMargin: Theme.gap; anchors.verticalCenter: field.verticalCenter; glyph: "folder-open"; name: "Open Folder"; onClicked: library.openFolder(-1) }
    ListView {
        id: list
        anchors.top: field.bottom
        anchors.topMargin: Theme.gap
        anchors.bottom: foot.top
        width: parent.width
        clip: true
        model: library
        boundsBehavior: Flickable.StopAtBounds
        activeFocusOnTab: true
        keyNavigationEnabled: true
        cacheBuffer: 0
        property bool takesArrows: true
        Accessible.role: Accessible.List
        Accessible.name: "Library"
        Keys.onReturnPressed: library.add(currentIndex)
        Keys.onEnterPressed: library.add(currentIndex)
        Keys.onRightPressed: library.play(currentIndex)
        Keys.onLeftPressed: library.stop()

        section.property: "group"
        section.delegate: Words {
            required property string section
            width: list.width
            height: 28
            leftPadding: Theme.gap
            text: section
            color: section === "Left out" ? Theme.notice : Theme.text3
            font.pixelSize: Theme.noteSize
            font.weight: Font.DemiBold
        }
        delegate: Rectangle {
            id: item
            required property int index
            required property string kind
            required property string name
            required property string about
            required property string length
            required property string book
            required property string path
            readonly property bool reached: list.activeFocus && list.currentIndex === index
            readonly property bool sounds: kind === "sound" && library.playing === path
            width: list.width
            height: kind === "book" ? 104 : kind === "sound" ? 44 : 58
            color: reached ? Theme.hover : over.hovered ? Theme.raised : "transparent"
            Accessible.role: Accessible.ListItem
            Accessible.name: [name, length, kind === "leftOut" ? "left out: " + about : about].filter(one => one).join(", ")
            Accessible.onPressAction: library.add(index)

            HoverHandler { id: over }
            CarryArea {
                id: carried
                anchors.fill: parent
                ghost: item.kind === "leftOut" ? null : label
                threshold: 6
                acceptedButtons: Qt.LeftButton | Qt.RightButton
                onClicked: (mouse) => { if (mouse.button === Qt.RightButton) { const at = mapToItem(null, mouse.x, mouse.y); page.askMenu(at.x, at.y) } }
                onPressed: page.reach(item.index)
                onDoubleClicked: (mouse) => { if (mouse.button === Qt.LeftButton) library.add(item.index) }
                Rectangle {
                    id: label
                    property int libraryRow: item.index
                    parent: page.Window.contentItem
                    visible: Drag.active
                    z: 20
                    width: ghostName.implicitWidth + 2 * Theme.wide
                    height: Theme.control
                    radius: Theme.radius
                    color: Theme.raised
                    border.color: Theme.accent
                    Drag.active: carried.carries
                    Drag.keys: ["murbo/library"]
                    Drag.hotSpot: Qt.point(-4, -4)
                    Words { id: ghostName; anchors.centerIn: parent; text: item.name; elide: Text.ElideNone }
                }
            }
            Rectangle {
                id: place
                visible: item.kind === "book"
                x: Theme.gap
                y: 4
                width: 84
                height: 96
                radius: Theme.small
                color: Theme.canvas
                BookView { anchors.fill: parent; library: item.kind === "book" ? page.books : null; book: item.book; playing: item.kind === "book" && (over.hovered || item.reached) }
            }
            IconButton {
                id: listen
                visible: item.kind === "sound"
                x: Theme.small
                anchors.verticalCenter: parent.verticalCenter
                side: 15
                focusPolicy: Qt.NoFocus
                glyph: item.sounds ? "pause" : "play"
                name: (item.sounds ? "Stop " : "Listen to ") + item.name
                tint: item.sounds ? Theme.accent : Theme.text2
                onClicked: library.play(item.index)
            }
            Icon { visible: item.kind === "leftOut"; x: Theme.gap; y: 6; name: "triangle-alert"; tint: Theme.notice; side: 15 }
            Column {
                anchors.left: parent.left
                anchors.leftMargin: item.kind === "book" ? 84 + 2 * Theme.gap : 34
                anchors.right: parent.right
                anchors.rightMargin: item.kind === "sound" ? 64 : Theme.gap
                anchors.verticalCenter: parent.verticalCenter
                Words { width: parent.width; text: item.name; color: item.kind === "leftOut" ? Theme.text2 : Theme.text }
                Words { visible: item.kind === "book" && item.length !== ""; text: item.length; color: Theme.text2; font.pixelSize: Theme.noteSize }
                Words { visible: text !== ""; width: parent.width; text: item.about; color: item.kind === "sound" ? Theme.notice : Theme.text3; font.pixelSize: Theme.noteSize; wrapMode: Text.WordWrap; maximumLineCount: item.kind === "book" ? 4 : 2 }
            }
            Words { visible: item.kind === "sound"; anchors.right: parent.right; anchors.rightMargin: Theme.wide; height: parent.height; text: item.length; color: Theme.text3; font.pixelSize: Theme.noteSize }
            Rectangle { anchors.fill: parent; color: "transparent"; border.width: Theme.ring; border.color: Theme.accent; visible: item.reached }
        }
    }
    property QtObject books: library
    Column {
        anchors.centerIn: list
        width: list.width - 2 * Theme.margin
        spacing: Theme.wide
        visible: library.emptyWords !== ""
        Words { width: parent.width; text: library.emptyWords; Accessible.role: Accessible.StaticText; Accessible.name: text; color: Theme.text3; wrapMode: Text.WordWrap; elide: Text.ElideNone; horizontalAlignment: Text.AlignHCenter }
        Words { visible: button.visible; width: parent.width; text: library.folder; color: Theme.text2; wrapMode: Text.WrapAnywhere; elide: Text.ElideNone; horizontalAlignment: Text.AlignHCenter }
        PushButton { id: button; visible: library.words === "" && list.count === 0; anchors.horizontalCenter: parent.horizontalCenter; text: "Open Folder"; onClicked: library.openFolder(-1) }
    }
    Item {
        id: foot
        anchors.bottom: parent.bottom
        width: parent.width
        height: list.count > 0 ? 26 : 0
        visible: list.count > 0
        Words { x: Theme.gap; width: parent.width - 2 * Theme.gap; height: parent.height; color: Theme.text3; font.pixelSize: Theme.noteSize
                text: library.ofSounds ? "→ plays it, Enter puts it in, or drag it down" : "Enter puts it in, or drag it to the timeline" }
    }
    Rectangle { anchors.right: parent.right; width: 1; height: parent.height; color: Theme.line }
}
