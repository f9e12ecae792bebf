import QtQuick

// Title and shape of a new video.
Sheet {
    id: sheet

    property string aspect: project.lastAspect()

    title: "New Video"
    wide: 560
    mainWord: "Make Video"
    onAccepted: { project.sheet = ""; project.newVideo(name.text, aspect) }
    Component.onCompleted: name.forceActiveFocus()

    Column {
        width: parent.width
        spacing: Theme.wide
        Field { id: name; width: parent.width; name: "Title"; placeholderText: "Title"; onAccepted: sheet.accept() }
        Row {
            id: shapes
            width: parent.width
            spacing: Theme.wide
            Repeater {
                model: [
                    { aspect: "9:16", words: "Shorts, Reels", w: 45, h: 80 },
                    { aspect: "16:9", words: "YouTube", w: 80, h: 45 },
                    { aspect: "1:1", words: "Square", w: 64, h: 64 },
                    { aspect: "4:5", words: "Feed", w: 60, h: 75 }]
                ShapeCard {
                    required property var modelData
                    width: (shapes.width - 3 * shapes.spacing) / 4
                    shape: modelData
                    chosen: sheet.aspect === modelData.aspect
                    onClicked: sheet.aspect = modelData.aspect
                }
            }
        }
    }
}
