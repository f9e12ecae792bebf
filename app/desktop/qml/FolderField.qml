import QtQuick

// A folder, typed or chosen: in the system's dialog where it has one, else in a list below.
Column {
    id: choice

    property string name: "Folder"
    property alias folder: field.text
    signal edited(string folder)
    signal accepted()

    function takeFocus() { field.forceActiveFocus(); field.selectAll() }

    spacing: Theme.gap
    Row {
        width: parent.width
        spacing: Theme.gap
        Field { id: field; width: parent.width - button.width - Theme.gap; name: choice.name; glyph: "folder"; onTextEdited: choice.edited(text); onAccepted: choice.accepted() }
        PushButton { id: button; text: "Choose…"; onClicked: { asking.enabled = true; chooser.choose("folder", choice.name) } }
    }
    Connections {
        id: asking
        target: chooser
        enabled: false
        function onChosen(kind, paths) { enabled = false; if (kind === "folder" && paths.length) { field.text = paths[0]; choice.edited(paths[0]) } }
        function onUnavailable(kind) { enabled = false; list.active = true; list.item.takeFocus() }
    }
    Loader {
        id: list
        active: false
        visible: active
        width: parent.width
        height: active ? 220 : 0
        sourceComponent: FilePicker {
            height: 220
            wanted: "folders"
            Component.onCompleted: folders.folder = field.text
            Connections { target: folders; function onFolderChanged() { field.text = folders.folder; choice.edited(folders.folder) } }
        }
    }
}
