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
        // What is not on disk is said in whole, as long as there is room, and until it is there.
        Rectangle {
            id: state
            readonly property bool lost: project.unsaved !== ""
            readonly property bool hovered: over.hovered && words.truncated
            readonly property string said: project.unsaved
            onSaidChanged: if (said) Qt.callLater(() => announcer.say(state)) // once its role says so too
            anchors.verticalCenter: parent.verticalCenter
            width: words.width + (lost ? mark.width + 2 * Theme.gap : 0)
            height: Theme.control
            radius: Theme.radius
            color: lost ? Theme.badCard : "transparent"
            Accessible.role: lost ? Accessible.AlertMessage : Accessible.StaticText
            Accessible.name: words.text
            HoverHandler { id: over }
            Icon { id: mark; visible: state.lost; x: Theme.gap; anchors.verticalCenter: parent.verticalCenter; name: "circle-alert"; tint: Theme.bad; side: 15 }
            Words {
                id: words
                readonly property real room: bar.width - right.width - (pill.visible ? pill.width + Theme.wide : 0) - left.x - state.x - Theme.bar - 2 * Theme.wide
                x: state.lost ? mark.width + Theme.gap : 0
                height: parent.height
                leftPadding: Theme.gap
                text: project.unsaved || "saved"
                color: state.lost ? Theme.text : Theme.text3
                font.pixelSize: state.lost ? 12 : Theme.noteSize
                width: Math.max(Math.min(implicitWidth, room), 120)
            }
            Hint { of: state; words: project.unsaved }
        }
    }
    WorkPill {
        id: pill
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
