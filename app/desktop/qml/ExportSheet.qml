import QtQuick
import Murbo 1.0

// Taking the open video out as a movie: the form, then the queue of those on their way. While one is made
// others can be put in line.
Sheet {
    id: sheet

    property var picture: null
    property bool adding: true // a form stands there, though something runs or is done
    readonly property bool busy: project.exports.running
    readonly property bool done: project.exports.finished !== ""
    readonly property bool forms: adding || !busy && !done

    title: "Export"
    mainWord: forms ? (busy ? "Add to Queue" : "Export") : done && !busy ? "Show in Folder" : ""
    cancelWord: busy ? "Hide" : done ? "Done" : "Cancel"
    mainEnabled: forms ? exportSheet.problem === "" : mainWord !== ""
    onAccepted: {
        if (!forms) return desktop.showInFolder(project.exports.finished)
        exportSheet.start()
        adding = false
    }
    onFormsChanged: forms ? takeName() : sheet.forceActiveFocus()
    Component.onCompleted: { adding = !exportSheet.underWay; if (!busy) project.exports.clear(); exportSheet.fill(); if (forms) takeName() }
    function takeName() { name.forceActiveFocus(); name.selectAll() }

    Item {
        width: parent.width
        height: Math.max(left.height, right.height)
        Column {
            id: left
            spacing: Theme.gap
            Rectangle {
                width: 210
                height: project.upright ? 372 : 210
                color: Theme.canvas
                radius: Theme.small
                FrameView { anchors.fill: parent; mirrors: sheet.picture }
            }
            Words { text: exportSheet.facts; Accessible.role: Accessible.StaticText; Accessible.name: text; color: Theme.text3; font.pixelSize: Theme.noteSize }
        }
        Flickable {
            id: right
            x: 234
            width: parent.width - x + Theme.gap
            height: Math.min(column.height, sheet.room)
            contentHeight: column.height
            clip: true
            boundsBehavior: Flickable.StopAtBounds
            Column {
                id: column
                width: parent.width - Theme.gap - (right.contentHeight > right.height ? Theme.gap : 0)
                spacing: Theme.gap
                Column {
                    visible: sheet.forms
                    width: parent.width
                    spacing: Theme.gap
                    Words { text: "Video"; color: Theme.text3; font.pixelSize: Theme.noteSize }
                    DropDown { name: "Video"; width: parent.width; words: exportSheet.videos; chosen: exportSheet.video; onPicked: (index) => exportSheet.choose(index) }
                    Words { text: "Save as"; color: Theme.text3; font.pixelSize: Theme.noteSize }
                    Field { id: name; width: parent.width; name: "Save as"; text: exportSheet.fileName; onTextEdited: exportSheet.fileName = text; onAccepted: sheet.accept() }
                    FolderField { width: parent.width; folder: exportSheet.folder; onEdited: (path) => exportSheet.folder = path; onAccepted: sheet.accept() }
                    Words { visible: exportSheet.replaces; text: "A movie of that name is there: it will be replaced"; color: Theme.notice; font.pixelSize: Theme.noteSize }
                    Words { text: "Frame rate"; color: Theme.text3; font.pixelSize: Theme.noteSize }
                    Choice {
                        name: "Frame rate"
                        words: ["As footage", "60", "30", "24"]
                        chosen: [0, 60, 30, 24].indexOf(exportSheet.rate)
                        onPicked: (index) => exportSheet.rate = [0, 60, 30, 24][index]
                    }
                    Column {
                        topPadding: Theme.small
                        spacing: Theme.small
                        Tick { text: "Subtitles file (.srt) beside it"; checked: exportSheet.subtitles; onToggled: exportSheet.subtitles = checked }
                        Tick { text: "Include muted tracks"; note: exportSheet.mutedWords; checked: exportSheet.mutedRows; onToggled: exportSheet.mutedRows = checked }
                        Tick { text: "Include muted clips, sounds and songs"; checked: exportSheet.mutedBlocks; onToggled: exportSheet.mutedBlocks = checked }
                    }
                }
                ExportList { visible: !sheet.forms }
                Words { visible: sheet.busy && !sheet.forms; text: "You can go on editing meanwhile"; color: Theme.text3; font.pixelSize: Theme.noteSize }
                PushButton { visible: !sheet.forms; text: "Export Another…"; glyph: "plus"; onClicked: { exportSheet.fill(); sheet.adding = true } }
                DeliveryCard { onShown: project.sheet = "" }
                Rectangle {
                    visible: sheet.forms && (project.exports.problem !== "" || exportSheet.problem !== "")
                    width: parent.width
                    height: why.implicitHeight + Theme.wide
                    radius: Theme.radius
                    color: Theme.badCard
                    Words { id: why; x: Theme.gap; y: Theme.gap - 2; width: parent.width - Theme.margin; wrapMode: Text.WordWrap; elide: Text.ElideNone; text: exportSheet.problem || project.exports.problem; Accessible.role: Accessible.AlertMessage; Accessible.name: text }
                }
            }
        }
        ScrollMark { of: right }
    }
    foot: [
        Column {
            visible: sheet.busy
            anchors.verticalCenter: parent.verticalCenter
            width: parent.width - stop.width - Theme.gap
            spacing: Theme.small
            Words {
                text: "Exporting, " + Math.floor(project.exports.progress * 100) + " %" + (project.exports.left ? "  " + project.exports.left : "") + " · goes on if you close this"
                font.pixelSize: Theme.noteSize
                color: Theme.text2
                width: parent.width
            }
            Rectangle { width: parent.width; height: 4; radius: 2; color: Theme.pressed
                        Rectangle { width: project.exports.progress * parent.width; height: 4; radius: 2; color: Theme.accent } }
        },
        PushButton { id: stop; visible: sheet.busy; anchors.right: parent.right; text: "Stop"; onClicked: project.exports.stop() }
    ]
}
