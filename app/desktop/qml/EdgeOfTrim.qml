import QtQuick
import Murbo 1.0

// The picture at one end of a cut that is dragged; plain where that has no footage.
Item {
    id: place

    property QtObject edge
    property string words // before its time

    Rectangle { anchors.fill: parent; color: Theme.canvas }
    StillView {
        anchors.centerIn: parent
        width: Math.min(parent.width, parent.height * 16 / 9)
        height: width * 9 / 16
        visible: place.edge.shown && !place.edge.ready
        source: place.edge.source
        from: place.edge.at
        to: place.edge.at
        footage: project.footage
    }
    FrameView { anchors.fill: parent; anchors.rightMargin: 1; player: place.edge.player; visible: place.edge.ready }
    Words { anchors.centerIn: parent; visible: !place.edge.shown; text: "No footage"; color: Theme.text3 }
    Badge { x: Theme.gap; y: Theme.gap; text: place.edge.shown ? place.words + project.fine(place.edge.at) : ""
            Accessible.role: Accessible.StaticText; Accessible.name: "Edge " + text }
}
