import QtQuick

// A playbook that is to come into the library.
Sheet {
    id: sheet

    title: "Add Playbook to the Library"
    wide: 560
    mainWord: "Add"
    mainEnabled: folder.folder.trim() !== ""
    onAccepted: { project.sheet = ""; library.bringIn([folder.folder.trim()]) }
    Component.onCompleted: folder.takeFocus()

    Column {
        width: parent.width
        spacing: Theme.gap
        Words { width: parent.width; color: Theme.text2; wrapMode: Text.WordWrap; elide: Text.ElideNone; text: "A playbook is a folder whose name ends in .mbplay. One that you have already becomes its next version." }
        FolderField { id: folder; width: parent.width; name: "Playbook"; folder: desktop.projectFolder + "/"; onAccepted: sheet.accept() }
    }
}
