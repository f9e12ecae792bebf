import QtQuick

// A few words over a picture.
Rectangle {
    property alias text: label.text

    width: label.implicitWidth + 2 * Theme.gap
    height: label.implicitHeight + Theme.small
    radius: Theme.small
    color: "#B0000000"
    visible: label.text !== ""
    Words { id: label; anchors.centerIn: parent; elide: Text.ElideNone }
}
