import QtQuick
import QtQuick.Templates as T

// A colour: a well that opens a board of colours, and its RRGGBB to type.
FocusScope {
    id: field

    property string name
    property string held // RRGGBB; empty for none
    property bool mixed: false
    property bool mayBeNone: false
    signal dragged(string colour)
    signal settled(string colour)
    signal reset()
    signal cancelled()

    function isColour(text) { return /^[0-9A-Fa-f]{6}$/.test(text) }

    width: parent ? parent.width : 160
    implicitHeight: Theme.control

    T.Button {
        id: well
        width: Theme.bar
        height: Theme.control
        focusPolicy: Qt.TabFocus
        hoverEnabled: true
        onClicked: board.open()
        Accessible.role: Accessible.Button
        Accessible.name: field.name + ": " + (field.held || "none")
        Accessible.onPressAction: board.open()
        Keys.onReturnPressed: board.open()
        Keys.onEnterPressed: board.open()
        background: Rectangle {
            radius: Theme.radius
            color: field.isColour(field.held) && !field.mixed ? "#" + field.held : "transparent"
            border.color: well.hovered ? Theme.text2 : Theme.fieldEdge
            Words { anchors.centerIn: parent; text: field.mixed ? "–" : field.held ? "" : "none"; font.pixelSize: Theme.noteSize; color: Theme.text3 }
            Ring { around: well }
        }
        T.Popup {
            id: board
            y: well.height + Theme.small
            padding: Theme.gap
            margins: Theme.gap
            focus: true
            onAboutToShow: { project.menuOpen = true; grid.currentIndex = Math.max(grid.model.indexOf(field.held.toUpperCase()), 0) }
            onClosed: project.menuOpen = false
            background: Rectangle { color: Theme.raised; radius: Theme.radius; border.color: Theme.pressed }
            contentItem: GridView {
                id: grid
                function choose(index) { board.close(); field.settled(model[index]) }
                implicitWidth: 8 * cellWidth
                implicitHeight: 4 * cellHeight + (field.mayBeNone ? Theme.control : 0)
                cellWidth: 26
                cellHeight: 26
                interactive: false
                focus: true
                keyNavigationEnabled: true
                model: Theme.colourBoard
                Accessible.role: Accessible.List
                Accessible.name: field.name
                Keys.onReturnPressed: choose(currentIndex)
                Keys.onEnterPressed: choose(currentIndex)
                Keys.onSpacePressed: choose(currentIndex)
                Keys.onEscapePressed: board.close()
                delegate: Item {
                    id: one
                    required property int index
                    required property string modelData
                    width: 26
                    height: 26
                    Accessible.role: Accessible.ListItem
                    Accessible.name: modelData
                    Accessible.onPressAction: grid.choose(index)
                    Rectangle { anchors.fill: parent; anchors.margins: 2; radius: Theme.small; color: "#" + one.modelData
                                border.width: grid.currentIndex === one.index ? Theme.ring : 1
                                border.color: grid.currentIndex === one.index ? Theme.accent : Theme.pressed }
                    MouseArea { anchors.fill: parent; hoverEnabled: true; onEntered: grid.currentIndex = one.index; onClicked: grid.choose(one.index) }
                }
                PushButton { visible: field.mayBeNone; anchors.bottom: parent.bottom; width: parent.width; text: "None"
                             onClicked: { board.close(); field.settled("") } }
            }
        }
    }
    PipetteButton { id: dropper; x: well.width + Theme.small; of: field.name; onPicked: (colour) => field.settled(colour) }
    LineField {
        anchors.right: parent.right
        width: field.width - well.width - dropper.width - 2 * Theme.small
        name: field.name
        held: field.held
        mixed: field.mixed
        onCancelled: field.cancelled()
        onDragged: (text) => { if (field.isColour(text)) field.dragged(text.toUpperCase()) }
        onSettled: (text) => {
            const plain = text.trim().replace("#", "")
            if (plain === "" && !field.mayBeNone) field.reset()
            else if (plain === "" || field.isColour(plain)) field.settled(plain.toUpperCase())
        }
    }
}
