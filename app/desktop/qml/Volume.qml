import QtQuick

// How loud the viewers are; exports know nothing of it.
Row {
    id: volume

    property bool wide: true

    spacing: 2
    height: Theme.control
    IconButton {
        glyph: previewVolume.muted ? "volume-x" : "volume-2"
        name: previewVolume.muted ? "Hear the viewers" : "Silence the viewers"
        checked: previewVolume.muted
        side: 16
        onClicked: previewVolume.muted = !previewVolume.muted
    }
    Slide {
        visible: volume.wide
        anchors.verticalCenter: parent.verticalCenter
        width: 64
        name: "Volume of the viewers"
        from: 0
        to: 1
        value: previewVolume.level
        onMoved: previewVolume.level = value
    }
}
