import QtQuick

// What is at work, with its share and a stop: a job of the session, or an export.
Rectangle {
    id: pill

    readonly property bool working: project.workLabel !== ""
    readonly property bool exporting: !working && project.exports.running
    readonly property real share: working ? project.workProgress : exporting ? project.exports.progress : -1


    visible: working || exporting
    width: row.implicitWidth + 2 * Theme.wide
    height: Theme.control
    radius: height / 2
    color: Theme.raised
    Accessible.role: Accessible.ProgressBar
    Accessible.name: words.text

    Row {
        id: row
        anchors.centerIn: parent
        spacing: Theme.gap
        Words {
            id: words
            text: pill.working ? project.workLabel : "Exporting " + project.exports.title + (project.exports.waiting > 0 ? ", " + project.exports.waiting + " more" : "")
            width: Math.min(implicitWidth, 260)
            height: Theme.control
            Accessible.role: Accessible.AlertMessage
            Accessible.name: text
            onTextChanged: if (visible && (project.workLabel !== "" || project.exports.running)) announcer.say(words)
        }
        Rectangle {
            visible: pill.share >= 0
            anchors.verticalCenter: parent.verticalCenter
            width: 80
            height: 4
            radius: 2
            color: Theme.pressed
            Rectangle { width: Math.max(pill.share, 0) * parent.width; height: 4; radius: 2; color: Theme.accent }
        }
        IconButton { glyph: "x"; name: "Stop"; side: 14; implicitWidth: Theme.tool; implicitHeight: Theme.tool
                     anchors.verticalCenter: parent.verticalCenter
                     onClicked: pill.working ? project.cancelWork() : project.exports.stop() }
    }
}
