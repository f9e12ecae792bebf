import QtQuick
import Murbo 1.0

// Taking the open video out as a movie.
Sheet {
    id: sheet

    property var picture: null
    readonly property bool busy: project.exports.running
    readonly property bool forms: !busy && project.exports.finished === ""

    title: "Export"
    mainWord: busy ? "" : project.exports.finished ? "Show in Folder" : "Export"
    cancelWord: busy ? "Hide" : project.exports.finished ? "Done" : "Cancel"
    mainEnabled: project.exports.finished !== "" || exportSheet.problem === ""
    onAccepted: project.exports.finished ? desktop.showInFolder(project.exports.finished) : exportSheet.start()
    onFormsChanged: sheet.forceActiveFocus()
    Component.onCompleted: { project.exports.clear(); exportSheet.fill(); name.forceActiveFocus(); name.selectAll() }

    Row {
        width: parent.width
        spacing: 24
        Column {
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
        Column {
            width: parent.width - 210 - parent.spacing
            spacing: Theme.gap
            Words { text: "Video"; color: Theme.text3; font.pixelSize: Theme.noteSize }
            Words { text: project.videoTag + " · " + project.videoTitle; width: parent.width }
            // What runs or is done is no form any more.
            Column {
                visible: !sheet.forms
                width: parent.width
                spacing: Theme.small
                Words { width: parent.width; text: project.exports.file; color: Theme.text2; wrapMode: Text.WrapAnywhere; elide: Text.ElideNone; maximumLineCount: 3; Accessible.role: Accessible.StaticText; Accessible.name: text }
                Words { visible: sheet.busy; text: "You can go on editing meanwhile"; color: Theme.text3; font.pixelSize: Theme.noteSize }
                PushButton { visible: project.exports.finished !== ""; text: "Copy Path"; onClicked: exportSheet.copy(project.exports.finished) }
            }
            Column {
                visible: sheet.forms
                width: parent.width
                spacing: Theme.gap
                Words { text: "Save as"; color: Theme.text3; font.pixelSize: Theme.noteSize; topPadding: Theme.small }
                Field { id: name; width: parent.width; name: "Save as"; text: exportSheet.fileName; onTextEdited: exportSheet.fileName = text; onAccepted: sheet.accept() }
                Words { text: "In the folder"; color: Theme.text3; font.pixelSize: Theme.noteSize; topPadding: Theme.small }
                FolderField { width: parent.width; folder: exportSheet.folder; onEdited: (path) => exportSheet.folder = path; onAccepted: sheet.accept() }
                Words { visible: exportSheet.replaces; text: "A movie of that name is there: it will be replaced"; color: Theme.notice; font.pixelSize: Theme.noteSize }
                Words { text: "Frame rate"; color: Theme.text3; font.pixelSize: Theme.noteSize; topPadding: Theme.small }
                Choice {
                    name: "Frame rate"
                    words: ["As footage", "60", "30", "24"]
                    chosen: [0, 60, 30, 24].indexOf(exportSheet.rate)
                    onPicked: (index) => exportSheet.rate = [0, 60, 30, 24][index]
                }
                Item { width: 1; height: Theme.small }
                Tick { text: "Subtitles file (.srt) beside it"; checked: exportSheet.subtitles; onToggled: exportSheet.subtitles = checked }
                Tick { text: "Include muted tracks"; note: exportSheet.mutedWords; checked: exportSheet.mutedRows; onToggled: exportSheet.mutedRows = checked }
                Tick { text: "Include muted clips, sounds and songs"; checked: exportSheet.mutedBlocks; onToggled: exportSheet.mutedBlocks = checked }
            }
            Rectangle {
                visible: project.exports.problem !== "" || exportSheet.problem !== ""
                width: parent.width
                height: why.implicitHeight + Theme.wide
                radius: Theme.radius
                color: Theme.badCard
                Words { id: why; x: Theme.gap; y: Theme.gap - 2; width: parent.width - Theme.margin; wrapMode: Text.WordWrap; elide: Text.ElideNone; text: project.exports.problem || exportSheet.problem; Accessible.role: Accessible.AlertMessage; Accessible.name: text }
            }
        }
    }
    foot: [
        Column {
            visible: sheet.busy || project.exports.finished !== ""
            anchors.verticalCenter: parent.verticalCenter
            width: parent.width - (stop.visible ? stop.width + Theme.gap : 0)
            spacing: Theme.small
            Words {
                text: project.exports.finished ? "Exported " + project.exports.title
                    : "Exporting, " + Math.floor(project.exports.progress * 100) + " %  " + project.exports.left + " · goes on if you close this"
                font.pixelSize: Theme.noteSize
                color: Theme.text2
                width: parent.width
            }
            Rectangle { width: parent.width; height: 4; radius: 2; color: Theme.pressed
                        Rectangle { width: (project.exports.finished ? 1 : project.exports.progress) * parent.width; height: 4; radius: 2; color: project.exports.finished ? Theme.good : Theme.accent } }
        },
        PushButton { id: stop; visible: sheet.busy; anchors.right: parent.right; text: "Stop"; onClicked: project.exports.stop() }
    ]
}
