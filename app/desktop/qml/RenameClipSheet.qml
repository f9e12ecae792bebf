import QtQuick

// Another title for a clip; an empty one brings back the one it would have by itself.
Sheet {
    id: sheet

    readonly property var question: project.askToRename()

    title: question.title || ""
    wide: Theme.narrowSheet
    mainWord: "Rename"
    onAccepted: { project.sheet = ""; if (name.text !== question.name) project.renameClip(name.text) }
    Component.onCompleted: { name.text = question.name || ""; name.forceActiveFocus(); name.selectAll() }

    Column {
        width: parent.width
        spacing: Theme.gap
        Words { visible: text !== ""; width: parent.width; text: sheet.question.text || ""; color: Theme.text2; wrapMode: Text.WordWrap; elide: Text.ElideNone; Accessible.role: Accessible.StaticText; Accessible.name: text }
        Field { id: name; width: parent.width; name: "Title"; onAccepted: sheet.accept() }
    }
}
