import QtQuick
import Murbo 1.0

// What the sidebar has picked, as a list with stills.
Rectangle {
    id: browser

    function search() { field.forceActiveFocus(Qt.ShortcutFocusReason); field.selectAll() }
    function takeFocus() { list.forceActiveFocus(Qt.TabFocusReason) }
    function openMenu() { if (list.currentItem) list.currentItem.askMenu() }
    readonly property bool active: list.activeFocus || field.activeFocus

    color: Theme.panel

    Field {
        id: field
        x: Theme.gap
        y: Theme.gap
        width: parent.width - 2 * Theme.gap
        glyph: "search"
        name: "Search"
        placeholderText: "Search words and tags"
        onTextChanged: project.browser.words = text
        Keys.onEscapePressed: { text = ""; list.forceActiveFocus() }
        Keys.onDownPressed: list.forceActiveFocus()
    }
    ListView {
        id: list
        anchors.top: field.bottom
        anchors.topMargin: Theme.gap
        anchors.bottom: parent.bottom
        width: parent.width
        clip: true
        model: project.browser
        boundsBehavior: Flickable.StopAtBounds
        activeFocusOnTab: true
        currentIndex: project.browser.count >= 0 ? project.browser.heldRow() : -1
        property bool takesArrows: true
        property bool upAndDown: true
        Accessible.role: Accessible.List
        Accessible.name: "Browser"
        Keys.onUpPressed: project.browser.pick(Math.max(currentIndex - 1, 0), 0)
        Keys.onDownPressed: project.browser.pick(Math.min(currentIndex + 1, count - 1), 0)
        Keys.onReturnPressed: project.browser.activate(currentIndex)

        delegate: BrowserItem { width: list.width; focused: list.activeFocus; onMenuAsked: (kind, px, py) => context.openPoint(px, py, project.contextMenu(kind)) }
    }
    MenuList { id: context }
    Words {
        anchors.centerIn: list
        width: list.width - 2 * Theme.margin
        visible: project.browser.emptyWords !== ""
        text: project.browser.emptyWords
        Accessible.role: Accessible.StaticText
        Accessible.name: text
        color: Theme.text3
        wrapMode: Text.WordWrap
        elide: Text.ElideNone
        horizontalAlignment: Text.AlignHCenter
    }
    Rectangle { anchors.right: parent.right; width: 1; height: parent.height; color: Theme.line }
}
