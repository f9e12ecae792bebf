import QtQuick

// "Before you post": what is worth a look in the video, with a way to it.
Rectangle {
    id: card

    readonly property int maxShown: 6 // findings shown
    signal shown()

    width: parent.width
    height: column.height + 2 * Theme.gap
    radius: Theme.radius
    color: Theme.panel
    Component.onCompleted: deliveryCheck.begin()
    Component.onDestruction: deliveryCheck.end()

    Column {
        id: column
        x: Theme.wide
        y: Theme.gap
        width: parent.width - 2 * Theme.wide
        Item {
            width: parent.width
            height: Theme.tool
            Words { height: parent.height; text: "Before you post"; font.weight: Font.DemiBold; Accessible.role: Accessible.Heading; Accessible.name: text }
            Words { anchors.right: parent.right; height: parent.height; text: deliveryCheck.state; color: Theme.text3; font.pixelSize: Theme.noteSize; Accessible.role: Accessible.StaticText; Accessible.name: text }
        }
        Repeater {
            model: deliveryCheck.findings.slice(0, card.maxShown)
            Item {
                id: line
                required property int index
                required property var modelData
                width: column.width
                height: Math.max(Theme.tool, words.implicitHeight)
                Icon { y: 4; name: "triangle-alert"; tint: Theme.notice; side: 16 }
                Words { id: words; x: 24; width: parent.width - x - links.width - Theme.gap; height: parent.height; text: line.modelData.words; wrapMode: Text.WordWrap; maximumLineCount: 2
                        Accessible.role: Accessible.StaticText; Accessible.name: line.modelData.words }
                Row {
                    id: links
                    anchors.right: parent.right
                    LinkButton { text: "Show"; about: line.modelData.words; onClicked: { deliveryCheck.show(line.index); card.shown() } }
                    LinkButton { visible: line.modelData.fixable; text: "Fix"; about: line.modelData.words; onClicked: deliveryCheck.fix(line.index) }
                }
            }
        }
        Words { visible: deliveryCheck.findings.length > card.maxShown; x: 24; height: Theme.tool; text: "and " + (deliveryCheck.findings.length - card.maxShown) + " more"; color: Theme.text3 }
        Item {
            visible: deliveryCheck.allGood !== ""
            width: parent.width
            height: Math.max(Theme.tool, good.implicitHeight)
            Icon { y: 4; name: "check"; tint: Theme.good; side: 16 }
            Words { id: good; x: 24; width: parent.width - x; height: parent.height; text: deliveryCheck.allGood; color: Theme.text2; wrapMode: Text.WordWrap; elide: Text.ElideNone; Accessible.role: Accessible.StaticText; Accessible.name: text }
        }
    }
}
