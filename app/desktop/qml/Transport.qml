import QtQuick

// Time, step back, play, step forward.
Item {
    id: transport

    property QtObject player
    property QtObject view // which shows what it plays
    property string what
    property string lengthWords
    property string shortWords: lengthWords // where those have no room
    property bool hasSound: true
    property real middle: 64 // half of what stands in the middle
    property bool wide: width > 560
    readonly property real room: width / 2 - middle - Theme.wide - Theme.gap // right of the middle
    readonly property bool plays: player.rate !== 0

    height: Theme.bar
    enabled: player.spanEnd > player.spanStart

    Words {
        id: time
        x: Theme.wide
        height: parent.height
        text: project.fine(transport.player.time)
        Accessible.role: Accessible.StaticText
        Accessible.name: "Time " + text
    }
    Row {
        anchors.centerIn: parent
        spacing: Theme.gap
        IconButton { glyph: "step-back"; name: "One frame back"; keys: "←"; onClicked: transport.view.step(-1) }
        IconButton { glyph: transport.plays ? "pause" : "play"; name: transport.plays ? "Pause" : "Play"; command: "play"; side: 20
                     onClicked: { project.setFocus(transport.what); project.perform("key.play") } }
        IconButton { glyph: "step-forward"; name: "One frame on"; keys: "→"; onClicked: transport.view.step(1) }
    }
    Row {
        anchors.right: parent.right
        anchors.rightMargin: Theme.wide
        height: parent.height
        spacing: Theme.gap
        Volume { id: volume; anchors.verticalCenter: parent.verticalCenter; visible: transport.hasSound && transport.room > 90; wide: transport.wide }
        Words {
            id: lengths
            height: parent.height
            text: whole.width + (volume.visible ? volume.width + Theme.gap : 0) > transport.room ? transport.shortWords : transport.lengthWords
            color: Theme.text3
            TextMetrics { id: whole; text: transport.lengthWords; font: lengths.font }
        }
    }
}
