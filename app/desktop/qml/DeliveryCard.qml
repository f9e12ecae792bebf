import QtQuick
import QtQuick.Window

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

    // Every check makes the rows anew: keys that were on one go to the one that stands in its place.
    property int reached: -1
    readonly property Item holder: Window.activeFocusItem
    function holds(outer, inner) {
        for (let item = inner; item; item = item.parent) if (item === outer) return true
        return false
    }
    onHolderChanged: if (holder && !holds(card, holder) && !holds(holder, card)) reached = -1 // they have gone elsewhere
    function giveBack() {
        if (reached < 0 || holds(card, holder)) return
        const row = rows.itemAt(Math.min(reached, rows.count - 1))
        if (row) row.takeFocus()
        else head.forceActiveFocus(Qt.TabFocusReason)
    }
    Connections { target: deliveryCheck; function onChanged() { Qt.callLater(card.giveBack) } }

    Column {
        id: column
        x: Theme.wide
        y: Theme.gap
        width: parent.width - 2 * Theme.wide
        Item {
            id: head
            property bool heads: true // the list
            property bool visualFocus: activeFocus
            width: parent.width
            height: Theme.tool
            Accessible.role: Accessible.Heading
            Accessible.name: title.text
            Accessible.description: deliveryCheck.state
            Accessible.focusable: true
            Ring { around: head }
            Words { id: title; height: parent.height; text: "Before you post"; font.weight: Font.DemiBold }
            Words { anchors.right: parent.right; height: parent.height; text: deliveryCheck.state; color: Theme.text3; font.pixelSize: Theme.noteSize; Accessible.role: Accessible.StaticText; Accessible.name: text }
        }
        Repeater {
            id: rows
            model: deliveryCheck.findings.slice(0, card.maxShown)
            Item {
                id: line
                required property int index
                required property var modelData
                function takeFocus() { (mend.visible ? mend : look).forceActiveFocus(Qt.TabFocusReason) }
                width: column.width
                height: Math.max(Theme.tool, words.implicitHeight)
                Icon { y: 4; name: "triangle-alert"; tint: Theme.notice; side: 16 }
                Words { id: words; x: 24; width: parent.width - x - links.width - Theme.gap; height: parent.height; text: line.modelData.words; wrapMode: Text.WordWrap; maximumLineCount: 2
                        Accessible.role: Accessible.StaticText; Accessible.name: line.modelData.words }
                Row {
                    id: links
                    anchors.right: parent.right
                    LinkButton { id: look; text: "Show"; onActiveFocusChanged: if (activeFocus) card.reached = line.index; about: line.modelData.words; onClicked: { deliveryCheck.show(line.index); card.shown() } }
                    LinkButton { id: mend; visible: line.modelData.fixable; text: "Fix"; onActiveFocusChanged: if (activeFocus) card.reached = line.index; about: line.modelData.words; onClicked: deliveryCheck.fix(line.index) }
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
