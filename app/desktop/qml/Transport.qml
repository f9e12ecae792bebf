import QtQuick

// Time, step back, play, step forward.
Item {
    id: transport

    property QtObject player
    property QtObject view // which shows what it plays
    property string what
    property string lengthWords
    property bool hasSound: true
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
        Volume { anchors.verticalCenter: parent.verticalCenter; visible: transport.hasSound; wide: transport.width > 560 }
        Words { height: parent.height; text: transport.lengthWords; color: Theme.text3 }
    }
}
