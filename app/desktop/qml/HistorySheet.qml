import QtQuick

// The steps made in this project: any of them can be gone back to, and forth again.
Sheet {
    id: sheet

    title: "History"
    wide: Theme.narrowSheet
    cancelWord: "Done"
    Component.onCompleted: { list.currentIndex = historySheet.now; list.positionViewAtIndex(historySheet.now, ListView.Center); list.forceActiveFocus() }

    Column {
        width: parent.width
        spacing: Theme.gap
        Words { width: parent.width; color: Theme.text3; text: "Click a step, or press Enter on it, to have the project as it was then" }
        Rectangle {
            width: parent.width
            height: 420
            radius: Theme.radius
            color: Theme.canvas
            border.color: list.activeFocus ? Theme.accent : Theme.line
            ListView {
                id: list
                anchors.fill: parent
                anchors.margins: Theme.small
                clip: true
                model: historySheet.steps
                activeFocusOnTab: true
                boundsBehavior: Flickable.StopAtBounds
                property bool takesArrows: true
                property int stands: historySheet.now
                onModelChanged: { currentIndex = stands; positionViewAtIndex(stands, ListView.Contain) }
                function go(row) { stands = row; historySheet.go(row) }
                Accessible.role: Accessible.List
                Accessible.name: "Steps"
                Keys.onReturnPressed: go(currentIndex)
                Keys.onEnterPressed: go(currentIndex)
                delegate: Rectangle {
                    id: line
                    required property int index
                    required property var modelData
                    readonly property bool isNow: index === historySheet.now
                    width: list.width
                    height: Theme.row
                    radius: Theme.small
                    color: isNow ? Theme.pressed : touch.containsMouse || list.activeFocus && list.currentIndex === index ? Theme.hover : "transparent"
                    Accessible.role: Accessible.ListItem
                    Accessible.name: modelData.name + (modelData.byModel ? ", by a model" : "") + (isNow ? ", as it is now" : modelData.undone ? ", undone" : "")
                    Accessible.onPressAction: list.go(index)
                    Icon { visible: line.isNow; x: Theme.gap; anchors.verticalCenter: parent.verticalCenter; name: "chevron-right"; tint: Theme.accent; side: 14 }
                    Words { x: 32; width: parent.width - 90; height: parent.height; text: line.modelData.name; font.italic: line.index === 0; color: line.modelData.undone ? Theme.text3 : line.index === 0 ? Theme.text2 : Theme.text }
                    Words { anchors.right: parent.right; anchors.rightMargin: Theme.wide; height: parent.height; text: [line.modelData.byModel ? "by a model" : "", line.isNow ? "now" : line.modelData.undone ? "undone" : ""].filter(one => one).join(" · "); color: Theme.text3; font.pixelSize: Theme.noteSize }
                    Rectangle { anchors.fill: parent; radius: Theme.small; color: "transparent"; border.width: Theme.ring; border.color: Theme.accent; visible: list.activeFocus && list.currentIndex === line.index }
                    MouseArea { id: touch; anchors.fill: parent; hoverEnabled: true; onClicked: list.go(line.index) }
                }
            }
        }
    }
}
