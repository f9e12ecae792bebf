import QtQuick

// One caption in the list; the picked one opens its words, to break it and to have words stand out.
Rectangle {
    id: item

    required property int index
    required property string time
    required property string words
    required property bool big
    required property bool hidden
    required property bool broken
    required property bool byHand
    required property bool picked
    required property bool current
    property bool editing: false
    signal menuAsked(real px, real py)

    function edit() {
        editing = true
        field.text = captions.list.textToEdit(index)
        field.forceActiveFocus(Qt.TabFocusReason)
        field.selectAll()
    }
    function endEdit(keep) {
        if (!editing) return
        editing = false
        if (keep) captions.list.retext(index, field.text)
        if (ListView.view) ListView.view.forceActiveFocus()
    }

    width: ListView.view ? ListView.view.width : 0
    height: line.height + (open.active ? open.height : 0)
    color: picked ? Theme.raised : touch.containsMouse ? Theme.raised : "transparent"
    Accessible.role: Accessible.ListItem
    Accessible.name: words + ", " + time + (big ? ", big" : "") + (hidden ? ", hidden" : "") + (picked ? ", picked" : "")
    Accessible.onPressAction: captions.list.pick(index)

    Rectangle { width: 3; height: parent.height; color: Theme.playhead; visible: item.current }
    Item {
        id: line
        width: parent.width
        height: Theme.control + Theme.small
        MouseArea {
            id: touch
            anchors.fill: parent
            hoverEnabled: true
            acceptedButtons: Qt.LeftButton | Qt.RightButton
            onClicked: (mouse) => {
                item.ListView.view.forceActiveFocus()
                captions.list.pick(item.index)
                if (mouse.button === Qt.RightButton) { const at = mapToItem(null, mouse.x, mouse.y); item.menuAsked(at.x, at.y) }
            }
            onDoubleClicked: item.edit()
        }
        Words { x: Theme.wide; width: 54; height: parent.height; text: item.time; color: Theme.text3; font.pixelSize: Theme.noteSize }
        Words {
            x: 66
            width: parent.width - x - buttons.width - Theme.wide - Theme.gap
            height: parent.height
            visible: !item.editing
            text: item.words
            color: item.hidden ? Theme.text3 : Theme.text
            font.strikeout: item.hidden
            font.weight: item.big ? Font.DemiBold : Font.Normal
        }
        Field {
            id: field
            visible: item.editing
            x: 62
            y: Theme.small / 2
            width: parent.width - x - Theme.wide
            name: "Words of the caption"
            Keys.onReturnPressed: item.endEdit(true)
            Keys.onEnterPressed: item.endEdit(true)
            onActiveFocusChanged: if (!activeFocus) item.endEdit(true)
        }
        Row {
            id: buttons
            visible: !item.editing
            anchors.right: parent.right
            anchors.rightMargin: Theme.gap
            anchors.verticalCenter: parent.verticalCenter
            IconButton { glyph: "type"; name: item.big ? "Make it normal" : "Make it big"; checked: item.big; side: 15; implicitWidth: Theme.tool; implicitHeight: Theme.tool; focusPolicy: item.picked ? Qt.TabFocus : Qt.NoFocus
                         onClicked: captions.list.toggleBig(item.index) }
            IconButton { glyph: "eye"; name: item.hidden ? "Show it" : "Hide it"; checked: item.hidden; side: 15; implicitWidth: Theme.tool; implicitHeight: Theme.tool; focusPolicy: item.picked ? Qt.TabFocus : Qt.NoFocus
                         onClicked: captions.list.toggleHidden(item.index) }
        }
    }
    Loader {
        id: open
        active: item.picked && captions.list.pickedRow === item.index
        anchors.top: line.bottom
        width: parent.width
        sourceComponent: CaptionWords {}
    }
}
