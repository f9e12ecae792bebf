import QtQuick
import QtQuick.Templates as T

// A box that is ticked or not, with its words and, below, what they mean.
T.CheckBox {
    id: tick

    property string note

    implicitWidth: Theme.tool + words.implicitWidth + Theme.gap
    implicitHeight: Math.max(Theme.tool, words.implicitHeight)
    focusPolicy: Qt.TabFocus
    Accessible.role: Accessible.CheckBox
    Accessible.name: text
    Accessible.description: note
    Accessible.checked: checked

    // Space plays; with Ctrl it is for the sheet that the box stands in.
    Keys.onReturnPressed: (event) => press(event)
    Keys.onEnterPressed: (event) => press(event)
    function press(event) {
        if (event.modifiers & Qt.ControlModifier) { event.accepted = false; return }
        if (typeof nextCheckState === "function") nextCheckState() // what it is bound to follows
        else toggle()
        toggled()
        clicked()
    }

    indicator: Rectangle {
        y: (Theme.tool - height) / 2
        width: 16
        height: 16
        radius: Theme.small
        color: tick.checked ? Theme.accent : "transparent"
        border.color: tick.checked ? Theme.accent : Theme.fieldEdge
        Icon { anchors.centerIn: parent; name: "check"; tint: Theme.accentText; side: 12; visible: tick.checkState === Qt.Checked }
        Rectangle { anchors.centerIn: parent; width: 8; height: 2; color: Theme.text2; visible: tick.checkState === Qt.PartiallyChecked }
        Ring { around: tick }
    }
    contentItem: Column {
        id: words
        leftPadding: Theme.tool
        Words { text: tick.text; height: Theme.tool; color: tick.enabled ? Theme.text : Theme.disabled }
        Words { text: tick.note; visible: tick.note !== ""; color: Theme.text3; font.pixelSize: Theme.noteSize }
    }
}
