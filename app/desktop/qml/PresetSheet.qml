import QtQuick

// Another name for a saved caption style.
Sheet {
    id: sheet

    title: "Rename Caption Style"
    wide: Theme.narrowSheet
    mainWord: "Rename"
    mainEnabled: name.text.trim() !== ""
    onAccepted: { project.sheet = ""; captions.renamePreset(name.text) }
    Component.onCompleted: { name.text = captions.meantPreset(); name.forceActiveFocus(); name.selectAll() }

    Field { id: name; width: parent.width; name: "Name of the preset"; onAccepted: sheet.accept() }
}
