import QtQuick
import Murbo 1.0

// A clip, source, video or bookmark in the browser.
Rectangle {
    id: item

    required property int index
    required property string title
    required property string tag
    required property string detail
    required property string note
    required property string length
    required property string source
    required property real from
    required property real to
    required property int rating
    required property bool missing
    required property bool picked
    required property bool held
    required property bool hearing
    required property bool failed
    required property string kind
    property bool focused: false
    function askMenu() { project.browser.askAbout(index); const at = mapToItem(null, 0, height); menuAsked(kind, at.x, at.y) }
    signal menuAsked(string kind, real px, real py)

    height: Theme.item
    color: picked || held ? Theme.hover : touch.containsMouse ? Theme.raised : "transparent"
    Accessible.role: Accessible.ListItem
    Accessible.name: [tag, title, length, note, rating > 0 ? "favourite" : rating < 0 ? "rejected" : "", missing ? "file not found" : ""].filter(one => one).join(", ")
    Accessible.selected: picked

    Rectangle { width: Theme.ring; height: parent.height; color: Theme.picked; visible: item.held }
    CarryArea {
        id: touch
        anchors.fill: parent
        hoverEnabled: true
        acceptedButtons: Qt.LeftButton | Qt.RightButton
        onClicked: (mouse) => {
            if (hasCarried) return
            if (mouse.button === Qt.LeftButton || !item.picked) project.browser.pick(item.index, mouse.modifiers)
            project.browser.askAbout(item.index)
            if (mouse.button === Qt.RightButton) { const at = mapToItem(null, mouse.x, mouse.y); item.menuAsked(item.kind, at.x, at.y) }
        }
        onDoubleClicked: project.browser.activate(item.index)
        // A clip or source can be carried to the timeline.
        ghost: item.kind === "clip" || item.kind === "source" ? carried : null
        onCarriesChanged: if (carries && !item.picked && !item.held) project.browser.pick(item.index, 0)
    }
    Item {
        id: carried
        readonly property var dragged: ({ kind: "clips" })
        width: 96
        height: 54
        visible: touch.carries
        Drag.active: touch.carries
        Drag.source: carried
        Drag.hotSpot.x: width / 2
        Drag.hotSpot.y: height / 2
        Rectangle {
            parent: item.Window.contentItem
            readonly property point place: { carried.x; carried.y; return carried.mapToItem(null, 0, 0) }
            z: 10
            x: place.x
            y: place.y
            width: 96
            height: 54
            radius: Theme.small
            visible: carried.visible
            color: Theme.pressed
            border.color: Theme.picked
            opacity: 0.85
            StillView { anchors.fill: parent; anchors.margins: 1; source: item.missing ? "" : item.source; from: item.from; to: item.to; footage: project.footage }
        }
    }
    Rectangle {
        id: place
        x: Theme.gap + 2
        y: (parent.height - height) / 2
        width: 96
        height: 54
        radius: Theme.small
        color: Theme.canvas
        StillView { anchors.fill: parent; source: item.missing ? "" : item.source; from: item.from; to: item.to; footage: project.footage
                    opacity: item.rating < 0 ? 0.35 : 1 }
        Icon { anchors.centerIn: parent; visible: item.missing; name: "file-question"; tint: Theme.notice }
        Rectangle { anchors.bottom: parent.bottom; width: parent.width; height: 2; color: Theme.accent; visible: item.hearing }
        Rectangle {
            visible: item.length !== ""
            anchors.right: parent.right
            anchors.bottom: parent.bottom
            anchors.margins: 2
            width: time.implicitWidth + 6
            height: 15
            radius: 3
            color: "#B0000000"
            Words { id: time; anchors.centerIn: parent; text: item.length; font.pixelSize: Theme.noteSize; elide: Text.ElideNone }
        }
    }
    Column {
        anchors.left: place.right
        anchors.leftMargin: Theme.gap
        anchors.right: parent.right
        anchors.rightMargin: Theme.gap
        anchors.verticalCenter: parent.verticalCenter
        Row {
            spacing: Theme.small
            Words { text: item.title; width: Math.min(implicitWidth, item.width - 140); color: item.rating < 0 ? Theme.text3 : Theme.text }
            Icon { name: item.rating > 0 ? "star-filled" : "circle-slash"; visible: item.rating !== 0; tint: item.rating > 0 ? Theme.picked : Theme.notice; side: 13; anchors.verticalCenter: parent.verticalCenter }
        }
        Words { text: item.detail; width: parent.width - (again.visible ? again.width : 0); color: Theme.text3; font.pixelSize: Theme.noteSize }
        Words { text: item.note; width: parent.width; color: item.missing || item.failed ? Theme.notice : Theme.text3; font.pixelSize: Theme.noteSize }
    }
    LinkButton {
        id: again
        anchors.right: parent.right
        anchors.rightMargin: Theme.small
        anchors.verticalCenter: parent.verticalCenter
        visible: item.failed
        focusPolicy: Qt.NoFocus
        text: "Try Again"
        about: item.tag || item.title
        onClicked: project.browser.tryAgain(item.index)
        Hint { of: again; words: item.note.length > 120 ? item.note.slice(0, 120) + "…" : item.note }
    }
    Rectangle { anchors.fill: parent; color: "transparent"; border.width: Theme.ring; border.color: Theme.accent; visible: item.focused && item.held }
}
