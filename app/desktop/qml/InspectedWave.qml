import QtQuick
import Murbo 1.0

// A picked sound or song as a wave.
Item {
    width: parent ? parent.width : 0
    implicitHeight: 52

    Rectangle {
        x: Theme.margin
        width: parent.width - Theme.margin - Theme.wide
        height: 44
        radius: Theme.small
        color: Theme.canvas
        PictureView { anchors.fill: parent; picture: inspectorPictures.wave
            Accessible.role: Accessible.Graphic; Accessible.name: "Wave of " + inspection.title }
    }
}
