import QtQuick
import QtQuick.Templates as T

// A button that is an icon; its name is what a hover and a screen reader say.
T.Button {
    id: button

    property string name
    property string command // an editing command, whose key the owner chooses
    property string keys: command ? (settingsSheet.moved, settingsSheet.keyOf(command)) : ""
    property color tint: checked ? Theme.accent : enabled ? Theme.text2 : Theme.disabled
    property int side: Theme.icon
    property bool toggles: false // stays on or off

    implicitWidth: Theme.control
    implicitHeight: Theme.control
    focusPolicy: Qt.TabFocus
    hoverEnabled: true
    text: name
    Accessible.role: Accessible.Button
    Accessible.name: name
    Accessible.description: keys
    Accessible.checkable: toggles
    Accessible.checked: toggles && checked
    Accessible.onPressAction: button.clicked()
    // Space plays; with Ctrl it is for the sheet that the button stands in.
    Keys.onReturnPressed: (event) => { if (event.modifiers & Qt.ControlModifier) event.accepted = false; else button.clicked() }
    Keys.onEnterPressed: (event) => { if (event.modifiers & Qt.ControlModifier) event.accepted = false; else button.clicked() }

    property string glyph
    contentItem: Item {
        Icon { anchors.centerIn: parent; name: button.glyph; tint: button.tint; side: button.side }
    }
    background: Rectangle {
        radius: Theme.radius
        color: button.down ? Theme.pressed : button.hovered && button.enabled || button.checked ? Theme.hover : "transparent"
        Ring { around: button }
    }
    Hint { of: button; words: button.keys ? button.name + "  " + button.keys : button.name }
}
