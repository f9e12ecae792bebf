import QtQuick
import Murbo 1.0

// A picked overlay over the video.
Item {
    width: parent ? parent.width : 0
    implicitHeight: 188

    Rectangle {
        x: Theme.margin
        width: parent.width - Theme.margin - Theme.wide
        height: 180
        radius: Theme.small
        color: Theme.canvas
        PictureView { anchors.fill: parent; anchors.margins: 1; picture: inspectorPictures.overlay
            Accessible.role: Accessible.Graphic; Accessible.name: "Picture of " + inspection.title }
    }
}
