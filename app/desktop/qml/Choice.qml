import QtQuick

// A few words side by side, of which one is chosen.
FocusScope {
    id: choice

    property string name
    property var words: []
    property int chosen: 0
    property bool takesArrows: true
    signal picked(int index)

    implicitWidth: row.implicitWidth + 2
    implicitHeight: Theme.control
    activeFocusOnTab: true
    Accessible.role: Accessible.RadioButton
    Accessible.name: name
    Accessible.description: words[chosen] || ""
    Accessible.focusable: true
    Keys.onLeftPressed: if (chosen > 0) picked(chosen - 1)
    Keys.onRightPressed: if (chosen < words.length - 1) picked(chosen + 1)

    Rectangle {
        anchors.fill: parent
        radius: Theme.radius
        color: Theme.canvas
        border.color: choice.activeFocus ? Theme.accent : Theme.line
    }
    Row {
        id: row
        x: 1
        y: 1
        Repeater {
            model: choice.words
            Rectangle {
                required property int index
                required property string modelData
                width: label.implicitWidth + 2 * Theme.wide
                height: Theme.control - 2
                radius: Theme.radius - 1
                color: index === choice.chosen ? Theme.pressed : touch.containsMouse ? Theme.hover : "transparent"
                Words { id: label; anchors.centerIn: parent; text: parent.modelData; elide: Text.ElideNone
                        color: parent.index === choice.chosen ? Theme.text : Theme.text2 }
                MouseArea { id: touch; anchors.fill: parent; hoverEnabled: true; onClicked: choice.picked(parent.index) }
            }
        }
    }
}
