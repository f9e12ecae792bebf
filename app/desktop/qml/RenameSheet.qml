import QtQuick

// Another title for the open video.
Sheet {
    id: sheet

    title: "Rename " + project.videoTag
    wide: Theme.narrowSheet
    mainWord: "Rename"
    mainEnabled: name.text.trim() !== ""
    onAccepted: { project.sheet = ""; project.renameVideo(name.text) }
    Component.onCompleted: { name.text = project.videoTitle; name.forceActiveFocus(); name.selectAll() }

    Field { id: name; width: parent.width; name: "Title"; onAccepted: sheet.accept() }
}
