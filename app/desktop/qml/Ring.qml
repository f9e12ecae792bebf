import QtQuick

// The focus ring round an item that the keys have reached.
Rectangle {
    property Item around: parent

    anchors.fill: parent
    anchors.margins: -Theme.ring
    color: "transparent"
    radius: Theme.radius + Theme.ring
    border.width: Theme.ring
    border.color: Theme.accent
    visible: around.visualFocus === true
}
