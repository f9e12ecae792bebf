import QtQuick

// A sheet: title, content, buttons at its foot. Esc goes back, Ctrl+Enter takes the main button.
FocusScope {
    id: sheet

    property string title
    property int wide: Theme.sheetWidth
    property string mainWord
    property bool mainEnabled: true
    property string cancelWord: "Cancel"
    property bool safe: false // going back is the bright button: what the main one does can't be undone
    property alias foot: extra.data
    readonly property real room: height - 7 * Theme.margin - head.height - last.height // the largest height that its content can have
    default property alias content: body.data
    signal accepted()

    property bool accepting: false
    // Ctrl+Enter in a field comes twice: from the field, and as the sheet's own key.
    function accept() {
        if (!mainEnabled || accepting) return
        accepting = true
        Qt.callLater(settle)
        accepted()
    }
    function settle() { accepting = false }

    Keys.onPressed: (event) => {
        if ((event.key === Qt.Key_Return || event.key === Qt.Key_Enter) && event.modifiers & Qt.ControlModifier) { sheet.accept(); event.accepted = true }
    }
    Accessible.role: Accessible.Dialog
    Accessible.name: title

    Rectangle {
        id: card
        anchors.centerIn: parent
        width: Math.min(sheet.wide, parent.width - 2 * Theme.margin)
        height: Math.min(head.height + body.childrenRect.height + last.height + 5 * Theme.margin, parent.height - 2 * Theme.margin)
        radius: Theme.sheetRadius
        color: Theme.raised
        MouseArea { property bool beside: true; anchors.fill: parent } // presses end here

        Words { id: head; x: 24; y: Theme.margin; height: 24; text: sheet.title; font.pixelSize: Theme.sheetSize; font.weight: Font.DemiBold }
        Item { id: body; x: 24; width: parent.width - 48; anchors.top: head.bottom; anchors.topMargin: Theme.margin; anchors.bottom: last.top; anchors.bottomMargin: Theme.margin }
        Item {
            id: last
            x: 24
            width: parent.width - 48
            height: Theme.control
            anchors.bottom: parent.bottom
            anchors.bottomMargin: Theme.margin
            Item { id: extra; anchors.left: parent.left; anchors.right: buttons.left; anchors.rightMargin: Theme.margin; height: parent.height }
            Row {
                id: buttons
                anchors.right: parent.right
                spacing: Theme.gap
                PushButton { visible: sheet.cancelWord !== ""; text: sheet.cancelWord; main: sheet.safe; onClicked: project.sheet = "" }
                PushButton { visible: sheet.mainWord !== ""; text: sheet.mainWord; main: !sheet.safe; enabled: sheet.mainEnabled; keys: "Ctrl+Enter"; onClicked: sheet.accept() }
            }
        }
    }
}
