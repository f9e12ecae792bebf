import QtQuick

// What the apps that show upright videos cover of the picture: outlines of what they leave free.
Item {
    id: areas

    readonly property var inks: [Theme.bad, Theme.accent, Theme.good]

    Accessible.role: Accessible.Graphic
    Accessible.name: "Safe areas. " + viewerAids.note
    Repeater {
        model: viewerAids.areas
        Item {
            id: free
            required property int index
            required property var modelData
            x: modelData.left * areas.width
            y: modelData.top * areas.height
            width: areas.width * (1 - modelData.left - modelData.right)
            height: areas.height * (1 - modelData.top - modelData.bottom)
            Rectangle { anchors.fill: parent; color: "transparent"; border.color: areas.inks[free.index % 3]; opacity: 0.9 }
            Words { x: Theme.small; y: parent.height - (free.index + 1) * 16 - 2; text: free.modelData.name; color: areas.inks[free.index % 3]
                    font.pixelSize: Theme.noteSize; style: Text.Outline; styleColor: "#C0000000" }
        }
    }
    Words { anchors.right: parent.right; anchors.bottom: parent.bottom; anchors.margins: Theme.small; text: "own estimates"; color: Theme.text
            font.pixelSize: Theme.noteSize; style: Text.Outline; styleColor: "#C0000000" }
}
