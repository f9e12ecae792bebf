import QtQuick

// One of the icons, tinted.
Image {
    property string name
    property color tint: Theme.text2
    property int side: Theme.icon

    width: side
    height: side
    sourceSize: Qt.size(side, side)
    source: name ? "image://icon/" + name + "/" + tint.toString().slice(-6) : ""
    smooth: false
}
