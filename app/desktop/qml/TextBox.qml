import QtQuick
import QtQuick.Templates as T

// A few lines to type in. Ctrl+Enter or leaving it keeps what was typed, Esc puts back what was there.
T.TextArea {
    id: box

    property string name
    property string held
    property bool takesEscape: true
    signal settled(string text)

    function finish() {
        if (text !== held) settled(text)
        text = Qt.binding(() => held)
    }

    implicitHeight: Math.max(contentHeight + 2 * Theme.gap, 64)
    padding: Theme.gap
    text: held
    color: Theme.text
    selectionColor: Theme.accent
    selectedTextColor: Theme.accentText
    font.family: Theme.family
    font.pixelSize: Theme.textSize
    wrapMode: TextEdit.Wrap
    textFormat: TextEdit.PlainText
    selectByMouse: true
    activeFocusOnTab: true
    Accessible.role: Accessible.EditableText
    Accessible.name: name
    onActiveFocusChanged: if (!activeFocus) finish()
    Keys.onEscapePressed: text = Qt.binding(() => held)
    Keys.onTabPressed: nextItemInFocusChain().forceActiveFocus(Qt.TabFocusReason)
    Keys.onBacktabPressed: nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason)
    Keys.onPressed: (event) => {
        if ((event.key === Qt.Key_Return || event.key === Qt.Key_Enter) && event.modifiers & Qt.ControlModifier) { finish(); event.accepted = true }
    }
    background: Rectangle {
        radius: Theme.radius
        color: Theme.canvas
        border.color: box.activeFocus ? Theme.accent : Theme.fieldEdge
        border.width: box.activeFocus ? Theme.ring : 1
    }
}
