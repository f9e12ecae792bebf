import QtQuick

// The short message over the timeline's toolbar.
Rectangle {
    id: toast

    property string action

    function show(words, button) {
        const stood = visible
        text.text = words
        action = button
        opacity = 1
        visible = true
        stay.interval = button ? Theme.toastStayLong : Theme.toastStay
        stay.restart()
        if (stood) announcer.say(toast)
    }
    function shake() { if (visible) shaking.restart() }

    visible: false
    width: Math.min(row.implicitWidth + 2 * Theme.margin, 640)
    height: Theme.control + 4
    radius: height / 2
    color: Theme.raised
    border.color: Theme.pressed
    z: 10
    Accessible.role: Accessible.AlertMessage
    Accessible.name: text.text

    Row {
        id: row
        anchors.centerIn: parent
        spacing: Theme.wide
        Words { id: text; height: Theme.control; width: Math.min(implicitWidth, 560) }
        PushButton { visible: toast.action !== ""; text: toast.action === "undo" ? "Undo" : "Redo"; implicitWidth: 64
                     implicitHeight: Theme.tool; anchors.verticalCenter: parent.verticalCenter
                     onClicked: { toast.visible = false; project.perform(toast.action) } }
    }
    HoverHandler { id: over }
    Timer { id: stay; running: false; onTriggered: over.hovered ? restart() : (toast.visible = false) }
    SequentialAnimation {
        id: shaking
        NumberAnimation { target: row; property: "anchors.horizontalCenterOffset"; to: 4; duration: 40 }
        NumberAnimation { target: row; property: "anchors.horizontalCenterOffset"; to: -4; duration: 80 }
        NumberAnimation { target: row; property: "anchors.horizontalCenterOffset"; to: 0; duration: 40 }
    }
}
