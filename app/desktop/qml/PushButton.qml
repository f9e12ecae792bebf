import QtQuick
import QtQuick.Templates as T

// A button with words; `main` for the one that a view is there for.
T.Button {
    id: button

    property bool main: false
    property string glyph
    property string keys

    implicitWidth: content.implicitWidth + 2 * Theme.margin
    implicitHeight: Theme.control
    focusPolicy: Qt.TabFocus
    hoverEnabled: true
    Accessible.role: Accessible.Button
    Accessible.name: text
    Accessible.onPressAction: button.clicked()
    // With Ctrl it is for the sheet that the button stands in.
    Keys.onReturnPressed: (event) => { if (event.modifiers & Qt.ControlModifier) event.accepted = false; else button.clicked() }
    Keys.onEnterPressed: (event) => { if (event.modifiers & Qt.ControlModifier) event.accepted = false; else button.clicked() }

    contentItem: Item {
        Row {
            id: content
            anchors.centerIn: parent
            spacing: Theme.gap
            Icon {
                visible: button.glyph !== ""
                name: button.glyph
                tint: label.color
                side: 16
                anchors.verticalCenter: parent.verticalCenter
            }
            Words {
                id: label
                text: button.text
                font.weight: button.main ? Font.DemiBold : Font.Normal
                color: !button.enabled ? Theme.disabled : button.main ? Theme.accentText : Theme.text
                elide: Text.ElideNone
            }
        }
    }
    background: Rectangle {
        radius: Theme.radius
        color: !button.enabled ? Theme.raised
             : button.main ? (button.down ? Qt.darker(Theme.accent, 1.15) : button.hovered ? Qt.lighter(Theme.accent, 1.08) : Theme.accent)
             : button.down ? Theme.pressed : button.hovered ? Theme.pressed : Theme.hover
        Ring { around: button }
    }
    Hint { of: button; words: button.keys }
}
