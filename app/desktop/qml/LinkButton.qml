import QtQuick
import QtQuick.Templates as T

// A word that does something, in a line of text.
T.Button {
    id: button

    property string about // what it is for, which a screen reader says with it

    implicitWidth: Math.max(label.implicitWidth + Theme.gap, Theme.tool)
    implicitHeight: Theme.tool
    focusPolicy: Qt.TabFocus
    hoverEnabled: true
    Accessible.role: Accessible.Button
    Accessible.name: about ? text + ": " + about : text
    Accessible.onPressAction: button.clicked()
    // With Ctrl it is for the sheet that the button stands in.
    Keys.onReturnPressed: (event) => { if (event.modifiers & Qt.ControlModifier) event.accepted = false; else button.clicked() }
    Keys.onEnterPressed: (event) => { if (event.modifiers & Qt.ControlModifier) event.accepted = false; else button.clicked() }

    contentItem: Words { id: label; text: button.text; color: Theme.accent; font.underline: button.hovered; horizontalAlignment: Text.AlignHCenter; elide: Text.ElideNone }
    background: Item { Ring { around: button } }
}
