import QtQuick

// Menus, the project's name, what is at work, undo, Export.
Rectangle {
    id: bar

    property bool compact: false
    function openMenus() { menus.openAt(left, "") }

    color: Theme.panel
    Accessible.role: Accessible.ToolBar
    Accessible.name: "Top bar"

    Row {
        id: left
        x: Theme.gap
        height: parent.height
        spacing: Theme.small

        IconButton { visible: bar.compact; glyph: "menu"; name: "Menus"; keys: "F10"; anchors.verticalCenter: parent.verticalCenter
                     onClicked: menus.openAt(this, "") }
        Repeater {
            model: bar.compact ? [] : project.menuNames()
            PushButton {
                required property string modelData
                text: modelData
                implicitWidth: 16 + modelData.length * 8
                anchors.verticalCenter: parent ? parent.verticalCenter : undefined
                background: Rectangle { radius: Theme.radius; color: parent.hovered ? Theme.hover : "transparent"; Ring { around: parent.parent } }
                onClicked: menus.openAt(this, modelData)
            }
        }
        Words { text: project.name; font.weight: Font.DemiBold; height: parent.height; leftPadding: Theme.gap }
        Words {
            height: parent.height
            leftPadding: Theme.gap
            text: project.unsaved || "saved"
            color: project.unsaved ? Theme.bad : Theme.text3
            font.pixelSize: Theme.noteSize
            width: Math.min(implicitWidth, 320)
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
    }
    WorkPill {
        anchors.verticalCenter: parent.verticalCenter
        x: Math.max(left.x + left.width + Theme.wide, Math.min((bar.width - width) / 2, right.x - width - Theme.wide))
    }
    Row {
        id: right
        anchors.right: parent.right
        anchors.rightMargin: Theme.gap
        height: parent.height
        spacing: Theme.small

        IconButton { glyph: "undo-2"; name: project.undoName ? "Undo " + project.undoName : "Undo"; keys: "Ctrl+Z"; enabled: project.undoName !== ""
                     anchors.verticalCenter: parent.verticalCenter; onClicked: project.perform("undo") }
        IconButton { glyph: "redo-2"; name: project.redoName ? "Redo " + project.redoName : "Redo"; keys: "Ctrl+Shift+Z"; enabled: project.redoName !== ""
                     anchors.verticalCenter: parent.verticalCenter; onClicked: project.perform("redo") }
        IconButton { glyph: "panel-right"; name: "Inspector"; keys: "Ctrl+Alt+I"; checked: inspectorPanel.shown
                     anchors.verticalCenter: parent.verticalCenter; onClicked: project.perform("inspector") }
        Item { width: Theme.small; height: 1 }
        PushButton { text: "Export"; glyph: "share"; main: true; keys: "Ctrl+E"; enabled: project.cuts > 0
                     anchors.verticalCenter: parent.verticalCenter; onClicked: project.perform("sheet.export") }
    }
    Rectangle { anchors.bottom: parent.bottom; width: parent.width; height: 1; color: Theme.line }
    MenuList { id: menus }
}
