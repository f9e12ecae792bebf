import QtQuick
import QtQuick.Templates as T

// The name of a section, with the line above it; a press folds or opens what is below.
T.AbstractButton {
    id: head

    property string name
    property bool open: true
    signal toggled()

    implicitHeight: Theme.bar
    topPadding: Theme.small
    focusPolicy: Qt.TabFocus
    hoverEnabled: true
    text: name
    onClicked: toggled()
    Accessible.role: Accessible.Button
    Accessible.name: name
    Accessible.description: open ? "open" : "folded"
    Accessible.onPressAction: toggled()
    Keys.onReturnPressed: toggled()
    Keys.onEnterPressed: toggled()

    contentItem: Item {
        Icon { x: Theme.gap; anchors.verticalCenter: parent.verticalCenter; name: head.open ? "chevron-down" : "chevron-right"; side: 14
               tint: head.hovered ? Theme.text : Theme.text3 }
        Words { x: 28; height: parent.height; text: head.name; font.weight: Font.DemiBold; color: Theme.text }
    }
    background: Item {
        Rectangle { y: Theme.small; width: parent.width; height: 1; color: Theme.line }
        Ring { around: head; anchors.margins: Theme.ring; anchors.topMargin: Theme.gap - 1 }
    }
}
