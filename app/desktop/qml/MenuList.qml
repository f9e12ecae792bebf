import QtQuick
import QtQuick.Templates as T

// A menu out of the table of actions. Without a name it lists the menus themselves first.
T.Popup {
    id: menu

    property string name
    property var lines: []

    function openAt(item, which) {
        const at = item.mapToItem(parent, 0, item.height)
        x = at.x
        y = at.y + 2
        show(which)
    }
    // At a place of the window.
    function openPoint(px, py, given) {
        const at = parent.mapFromItem(null, px, py)
        name = "context"
        lines = given
        x = at.x
        y = at.y
        open()
    }
    function show(which) {
        name = which
        lines = which ? project.menu(which) : project.menuNames().map(one => ({ id: "menu:" + one, title: one, keys: "▸", enabled: true }))
        open()
    }
    function choose(row) {
        const line = lines[row]
        if (!line || !line.enabled) return
        if (line.id.startsWith("menu:")) return show(line.id.slice(5))
        close()
        project.perform(line.id)
    }

    modal: true
    margins: Theme.small // it stays within the window
    focus: true
    padding: Theme.small
    implicitWidth: 320
    implicitHeight: Math.min(list.contentHeight + 2 * padding, (parent ? parent.Window.height : 600) - 60)
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutside
    // What had the focus has it again.
    property Item before
    onAboutToShow: { before = parent.Window.activeFocusItem; project.menuOpen = true; list.currentIndex = 0 }
    onClosed: {
        project.menuOpen = false
        if (before) before.forceActiveFocus(Qt.PopupFocusReason)
        before = null
    }

    background: Rectangle { color: Theme.raised; radius: Theme.radius; border.color: Theme.pressed }
    contentItem: ListView {
        id: list
        clip: true
        focus: true
        model: menu.lines
        boundsBehavior: Flickable.StopAtBounds
        keyNavigationWraps: true
        Accessible.role: Accessible.PopupMenu
        Accessible.name: menu.name
        Keys.onReturnPressed: menu.choose(currentIndex)
        Keys.onEnterPressed: menu.choose(currentIndex)
        Keys.onSpacePressed: menu.choose(currentIndex)
        Keys.onEscapePressed: menu.close()
        delegate: Rectangle {
            id: line
            required property int index
            required property var modelData
            width: list.width
            height: Theme.row
            radius: Theme.small
            color: list.currentIndex === index ? Theme.pressed : "transparent"
            Accessible.role: Accessible.MenuItem
            Accessible.name: modelData.title
            Accessible.description: modelData.keys
            Words { x: Theme.gap; width: parent.width - 100; height: parent.height; text: line.modelData.title
                    color: line.modelData.enabled ? Theme.text : Theme.disabled }
            Words { anchors.right: parent.right; anchors.rightMargin: Theme.gap; height: parent.height; text: line.modelData.keys; color: Theme.text3; font.pixelSize: Theme.noteSize }
            MouseArea { anchors.fill: parent; hoverEnabled: true; onEntered: list.currentIndex = line.index; onClicked: menu.choose(line.index) }
        }
    }
}
