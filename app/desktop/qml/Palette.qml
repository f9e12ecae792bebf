import QtQuick

// Every action by its words.
FocusScope {
    id: sheet

    readonly property var lines: project.found(field.text)
    function choose(row) {
        const line = lines[row]
        if (!line || !line.enabled) return
        project.sheet = ""
        project.perform(line.id)
    }

    Accessible.role: Accessible.Dialog
    Accessible.name: "Commands"

    Rectangle {
        anchors.horizontalCenter: parent.horizontalCenter
        y: 80
        width: 560
        height: Math.min(field.height + list.contentHeight + 2 * Theme.wide + Theme.gap, 450) // whole rows
        radius: Theme.sheetRadius
        color: Theme.raised
        MouseArea { property bool beside: true; anchors.fill: parent }
        Field {
            id: field
            x: Theme.wide
            y: Theme.wide
            width: parent.width - 2 * Theme.wide
            glyph: "search"
            name: "Commands"
            placeholderText: "What to do"
            focus: true
            onTextChanged: list.currentIndex = 0
            onAccepted: sheet.choose(list.currentIndex)
            Keys.onDownPressed: list.incrementCurrentIndex()
            Keys.onUpPressed: list.decrementCurrentIndex()
        }
        ListView {
            id: list
            anchors.top: field.bottom
            anchors.topMargin: Theme.gap
            anchors.bottom: parent.bottom
            anchors.bottomMargin: Theme.wide
            x: Theme.wide
            width: field.width
            clip: true
            model: sheet.lines
            boundsBehavior: Flickable.StopAtBounds
            property bool takesArrows: true // from the field
            Accessible.role: Accessible.List
            Accessible.name: "Commands found"
            delegate: Rectangle {
                id: line
                required property int index
                required property var modelData
                width: list.width
                height: Theme.row
                radius: Theme.small
                color: list.currentIndex === index ? Theme.pressed : "transparent"
                Accessible.role: Accessible.ListItem
                Accessible.name: modelData.title
                Words { x: Theme.gap; height: parent.height; text: line.modelData.title; color: line.modelData.enabled ? Theme.text : Theme.disabled }
                Words { anchors.right: parent.right; anchors.rightMargin: Theme.gap; height: parent.height; text: line.modelData.keys || line.modelData.menu; color: Theme.text3; font.pixelSize: Theme.noteSize }
                MouseArea { anchors.fill: parent; hoverEnabled: true; onEntered: list.currentIndex = line.index; onClicked: sheet.choose(line.index) }
            }
        }
    }
}
