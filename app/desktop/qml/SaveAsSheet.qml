import QtQuick

// Another name and place for the project, or a second one like it.
Sheet {
    id: sheet

    readonly property bool duplicate: project.sheet === "duplicate"

    title: duplicate ? "Duplicate Project" : "Save As"
    wide: 560
    mainWord: copySheet.busy ? "" : duplicate ? "Duplicate" : "Save"
    mainEnabled: name.text.trim() !== "" && folder.folder.trim() !== ""
    onAccepted: copySheet.start(!duplicate)
    Component.onCompleted: { copySheet.fill(); name.text = copySheet.name; folder.folder = copySheet.folder; name.forceActiveFocus(); name.selectAll() }
    Component.onDestruction: copySheet.stop()

    Column {
        width: parent.width
        spacing: Theme.gap
        Words { text: "Name"; color: Theme.text3; font.pixelSize: Theme.noteSize }
        Field { id: name; width: parent.width; name: "Name of the project"; enabled: !copySheet.busy; onTextChanged: copySheet.name = text; onAccepted: sheet.accept() }
        Words { text: "In the folder"; color: Theme.text3; font.pixelSize: Theme.noteSize; topPadding: Theme.small }
        FolderField { id: folder; width: parent.width; enabled: !copySheet.busy; onEdited: (path) => copySheet.folder = path; onAccepted: sheet.accept() }
        Words { width: parent.width; color: Theme.text3; font.pixelSize: Theme.noteSize; wrapMode: Text.WordWrap; elide: Text.ElideNone
                text: sheet.duplicate ? "The copy opens in a window of its own; this project stays open." : "The copy takes this window's place; the project under its old name stays as it is now." }
        Rectangle {
            visible: copySheet.problem !== ""
            width: parent.width
            height: why.implicitHeight + Theme.wide
            radius: Theme.radius
            color: Theme.badCard
            Words { id: why; x: Theme.gap; y: Theme.gap - 2; width: parent.width - Theme.margin; wrapMode: Text.WordWrap; elide: Text.ElideNone; text: copySheet.problem; Accessible.role: Accessible.AlertMessage; Accessible.name: text }
        }
    }
    foot: [ Words { visible: copySheet.busy; height: parent.height; text: "Copying…"; color: Theme.text2 } ]
}
