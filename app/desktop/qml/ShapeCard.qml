import QtQuick
import QtQuick.Templates as T

// A video's shape to choose.
T.RadioButton {
    id: card

    property var shape
    property bool chosen: false

    implicitWidth: 116
    implicitHeight: 150
    focusPolicy: Qt.TabFocus
    hoverEnabled: true
    checked: chosen
    onClicked: checked = Qt.binding(() => chosen)
    Accessible.name: shape.aspect + ", " + shape.words
    Accessible.checked: chosen
    // With Ctrl it is for the sheet that the card stands in.
    Keys.onReturnPressed: (event) => { if (event.modifiers & Qt.ControlModifier) event.accepted = false; else card.clicked() }
    Keys.onEnterPressed: (event) => { if (event.modifiers & Qt.ControlModifier) event.accepted = false; else card.clicked() }

    indicator: null
    contentItem: Item {
        Rectangle { anchors.horizontalCenter: parent.horizontalCenter; y: 52 - height / 2 + Theme.gap; width: card.shape.w; height: card.shape.h; radius: 3
                    color: "transparent"; border.width: 2; border.color: card.chosen ? Theme.accent : Theme.fieldEdge }
        Words { anchors.horizontalCenter: parent.horizontalCenter; y: 106; text: card.shape.aspect; font.weight: Font.DemiBold; elide: Text.ElideNone }
        Words { anchors.horizontalCenter: parent.horizontalCenter; y: 124; text: card.shape.words; color: Theme.text3; font.pixelSize: Theme.noteSize; elide: Text.ElideNone }
    }
    background: Rectangle {
        radius: Theme.radius
        color: card.chosen ? Theme.pressed : card.hovered ? Theme.hover : Theme.panel
        border.color: card.chosen ? Theme.accent : Theme.line
        Ring { around: card }
    }
}
