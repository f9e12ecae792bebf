import QtQuick
import QtQuick.Templates as T

// A letter to press: M or S on a row's header.
T.Button {
    id: button

    property string letter
    property string name
    property bool on: false
    property bool toggles: false // stays on or off
    property color lit: Theme.accent

    implicitWidth: 24
    implicitHeight: 24
    focusPolicy: Qt.TabFocus
    hoverEnabled: true
    Accessible.role: Accessible.Button
    Accessible.name: name
    Accessible.checkable: toggles
    Accessible.checked: toggles && on
    Accessible.onPressAction: button.clicked()

    contentItem: Item {}
    background: Item {
        Rectangle {
            anchors.centerIn: parent
            width: 20
            height: 20
            radius: Theme.small
            color: button.on ? button.lit : button.hovered ? Theme.pressed : Theme.hover
            Words { anchors.centerIn: parent; text: button.letter; font.pixelSize: Theme.noteSize; color: button.on ? Theme.accentText : Theme.text2 }
        }
        Ring { around: button }
    }
    Hint { of: button; words: button.name }
}
