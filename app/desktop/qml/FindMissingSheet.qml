import QtQuick

// Where the files of footage that has moved are to be looked for.
Sheet {
    id: sheet

    title: "Find Missing Footage"
    wide: 560
    mainWord: "Find"
    mainEnabled: folder.folder.trim() !== ""
    onAccepted: { project.sheet = ""; project.findMissing(folder.folder) }
    Component.onCompleted: folder.takeFocus()

    Column {
        width: parent.width
        spacing: Theme.gap
        Words { width: parent.width; color: Theme.text2; wrapMode: Text.WordWrap; elide: Text.ElideNone; text: "Files are found by their names, in this folder and those within it. All the cuts made of them are there again." }
        FolderField { id: folder; width: parent.width; folder: desktop.projectFolder; onAccepted: sheet.accept() }
    }
}
