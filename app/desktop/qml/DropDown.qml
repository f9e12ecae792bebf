import QtQuick
import QtQuick.Templates as T

// One of many words, chosen from a list that opens below.
T.ComboBox {
    id: drop

    property string name
    property var words: []
    property int chosen: 0
    property bool mixed: false // several at once
    property bool takesArrows: true
    signal picked(int index)

    width: parent ? parent.width : 160
    implicitHeight: Theme.control
    focusPolicy: Qt.TabFocus
    hoverEnabled: true
    model: words
    currentIndex: chosen
    onActivated: (index) => { picked(index); currentIndex = Qt.binding(() => chosen) }
    Accessible.role: Accessible.ComboBox
    Accessible.name: name
    Accessible.description: mixed ? "different" : words[chosen] || ""
    Accessible.onPressAction: popup.open()
    Keys.onReturnPressed: (event) => { if (popup.visible) event.accepted = false; else popup.open() }
    Keys.onEnterPressed: (event) => { if (popup.visible) event.accepted = false; else popup.open() }

    contentItem: Words {
        leftPadding: Theme.gap
        rightPadding: Theme.control
        text: drop.mixed ? "–" : drop.words[drop.chosen] || ""
    }
    indicator: Icon { x: drop.width - width - Theme.gap; y: (drop.height - height) / 2; name: "chevron-down"; side: 14 }
    background: Rectangle {
        radius: Theme.radius
        color: drop.hovered ? Theme.hover : Theme.canvas
        border.color: Theme.fieldEdge
        Ring { around: drop }
    }
    delegate: T.ItemDelegate {
        id: line
        required property int index
        required property string modelData
        width: ListView.view.width
        height: Theme.row
        Accessible.role: Accessible.ListItem
        Accessible.name: modelData
        contentItem: Words { leftPadding: Theme.gap; text: line.modelData; color: line.index === drop.chosen ? Theme.accent : Theme.text }
        background: Rectangle { radius: Theme.small; color: drop.highlightedIndex === line.index ? Theme.pressed : "transparent" }
    }
    popup: T.Popup {
        y: drop.height + 2
        width: drop.width
        implicitHeight: Math.min(contentItem.contentHeight + 2 * padding, 320)
        padding: Theme.small
        margins: Theme.gap
        onAboutToShow: project.menuOpen = true
        onClosed: project.menuOpen = false
        background: Rectangle { color: Theme.raised; radius: Theme.radius; border.color: Theme.pressed }
        contentItem: ListView {
            clip: true
            model: drop.delegateModel
            currentIndex: drop.highlightedIndex
            boundsBehavior: Flickable.StopAtBounds
        }
    }
}
