import QtQuick

// The movies that were asked for: what is being made, what waits, what became of the others.
Column {
    id: movies

    width: parent.width
    spacing: Theme.small
    Accessible.role: Accessible.List
    Accessible.name: "Movies"

    Repeater {
        model: project.exports.movies
        Rectangle {
            id: line
            required property string movie
            required property string title
            required property string file
            required property string stage
            required property string words
            readonly property bool running: stage === "running"
            readonly property string said: running ? "being made" : stage === "waiting" ? "waits" : words
            width: movies.width
            height: content.height + 2 * Theme.gap
            radius: Theme.radius
            color: stage === "failed" ? Theme.badCard : Theme.panel
            Accessible.role: Accessible.ListItem
            Accessible.name: title + ", " + (stage === "done" ? "done" : said)

            Icon {
                x: Theme.wide
                y: Theme.gap + 1
                side: 16
                name: line.stage === "done" ? "check" : line.stage === "failed" ? "triangle-alert" : line.stage === "stopped" ? "circle-slash" : "film"
                tint: line.stage === "done" ? Theme.good : line.stage === "failed" ? Theme.bad : line.running ? Theme.accent : Theme.text3
            }
            Column {
                id: content
                x: 40
                y: Theme.gap
                width: parent.width - x - buttons.width - Theme.wide
                spacing: 2
                Words { width: parent.width; text: line.title }
                Words { width: parent.width; text: line.file; color: Theme.text3; font.pixelSize: Theme.noteSize; elide: Text.ElideMiddle; Accessible.role: Accessible.StaticText; Accessible.name: text }
                Words { visible: text !== ""; width: parent.width; text: line.said; color: line.stage === "failed" ? Theme.text : Theme.text2; font.pixelSize: Theme.noteSize; wrapMode: Text.WordWrap; elide: Text.ElideNone }
            }
            Row {
                id: buttons
                anchors.right: parent.right
                anchors.rightMargin: Theme.gap
                anchors.verticalCenter: parent.verticalCenter
                IconButton { visible: line.stage === "done"; glyph: "play"; name: "Play"; side: 16; onClicked: exportSheet.play(line.file) }
                IconButton { visible: line.stage === "done"; glyph: "folder-open"; name: "Show in Folder"; side: 16; onClicked: desktop.showInFolder(line.file) }
                PushButton { visible: line.stage === "done"; text: "Copy Path"; onClicked: exportSheet.copy(line.file) }
                IconButton { visible: line.stage !== "running"; glyph: "x"; name: line.stage === "waiting" ? "Take Out of the Queue" : "Forget"; side: 14; onClicked: project.exports.remove(line.movie) }
            }
        }
    }
}
