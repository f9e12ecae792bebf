import QtQuick

// A control with its name before it, or with none over the whole width. A dot says that it is not at its standard; a double click on the name
// puts it back there.
Item {
    id: row

    property string name
    property bool changed: false
    property bool high: false // the control stands below the name and has the whole width
    default property alias content: place.data
    signal reset()

    width: parent ? parent.width : 0
    implicitHeight: place.y + place.childrenRect.height

    Words {
        id: label
        x: Theme.margin
        width: row.high ? row.width - 2 * Theme.margin : Theme.label - Theme.margin - Theme.small
        height: row.high ? Theme.tool : Theme.control
        text: row.name
        color: Theme.text2
        MouseArea { id: touch; property bool beside: true; property bool hovered: containsMouse && label.truncated; anchors.fill: parent; hoverEnabled: true; onDoubleClicked: row.reset() }
        Hint { of: touch; words: row.name }
    }
    Rectangle {
        visible: row.changed
        x: Theme.gap - 2
        y: (label.height - height) / 2
        width: 4
        height: 4
        radius: 2
        color: Theme.accent
    }
    Item {
        id: place
        x: row.high || !row.name ? Theme.margin : Theme.label
        y: row.high ? label.height : 0
        width: row.width - x - Theme.wide
        height: childrenRect.height
    }
}
