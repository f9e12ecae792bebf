import QtQuick
import QtQuick.Templates as T

// A line to type in.
T.TextField {
    id: field

    property string name
    property string glyph

    implicitHeight: Theme.control
    implicitWidth: 200
    leftPadding: glyph ? Theme.control : Theme.gap
    rightPadding: Theme.gap
    color: Theme.text
    placeholderTextColor: Theme.text3
    selectionColor: Theme.accent
    selectedTextColor: Theme.accentText
    font.family: Theme.family
    font.pixelSize: Theme.textSize
    verticalAlignment: TextInput.AlignVCenter
    selectByMouse: true
    Accessible.role: Accessible.EditableText
    Accessible.name: name

    Words {
        anchors.fill: parent
        leftPadding: field.leftPadding
        rightPadding: field.rightPadding
        text: field.placeholderText
        color: Theme.text3
        visible: field.text === "" && field.preeditText === ""
    }
    background: Rectangle {
        radius: Theme.radius
        color: Theme.canvas
        border.color: field.activeFocus ? Theme.accent : Theme.fieldEdge
        border.width: field.activeFocus ? Theme.ring : 1
        Icon { visible: field.glyph !== ""; name: field.glyph; side: 14; x: Theme.gap; anchors.verticalCenter: parent.verticalCenter }
    }
}
