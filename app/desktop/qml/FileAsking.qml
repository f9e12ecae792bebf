import QtQuick

// Asks for the file that a row of the inspector wants: by the system's dialog, else by a picker of its own.
Rectangle {
    id: asking

    property string row
    property string kind
    property string title

    function end() { picker.active = false; project.menuOpen = false }

    visible: picker.active
    color: Theme.panel
    onVisibleChanged: if (visible) project.menuOpen = true
    Keys.onEscapePressed: end()
    Component.onDestruction: if (picker.active) end()

    Connections {
        target: inspection
        function onFileAsked(row, kind, title) {
            asking.row = row
            asking.kind = kind
            asking.title = title
            answer.enabled = true
            chooser.choose(kind, title)
        }
        function onChanged() { if (!inspection.has(asking.row)) asking.end() }
    }
    Connections {
        id: answer
        target: chooser
        enabled: false
        function onChosen(kind, paths) { if (kind !== asking.kind) return; enabled = false; if (paths.length) inspection.takeFile(asking.row, paths[0]) }
        function onUnavailable(kind) { enabled = false; picker.active = true; picker.item.takeFocus() }
    }
    MouseArea { anchors.fill: parent; onWheel: (wheel) => wheel.accepted = true }
    Rectangle { width: parent.width; height: 1; color: Theme.line }
    Words { id: head; x: Theme.margin; width: parent.width - 2 * Theme.margin; height: Theme.bar; text: asking.title; font.weight: Font.DemiBold }
    Loader {
        id: picker
        active: false
        anchors.top: head.bottom
        anchors.bottom: cancel.top
        anchors.bottomMargin: Theme.gap
        x: Theme.wide
        width: parent.width - 2 * Theme.wide
        sourceComponent: FilePicker { wanted: asking.kind; height: picker.height; onPicked: (path) => { asking.end(); inspection.takeFile(asking.row, path) } }
    }
    PushButton { id: cancel; anchors.right: parent.right; anchors.rightMargin: Theme.wide; anchors.bottom: parent.bottom; anchors.bottomMargin: Theme.wide; text: "Cancel"; onClicked: asking.end() }
}
