import QtQuick

// Footage to bring in: what was handed over, file by file, and what is to be done with it.
Sheet {
    id: sheet

    title: "Add Footage"
    mainWord: footageSheet.readable > 1 ? "Add " + footageSheet.readable + " Files" : "Add"
    mainEnabled: footageSheet.readable > 0 && !footageSheet.reading
    onAccepted: { footageSheet.add(); project.sheet = "" }
    Component.onDestruction: footageSheet.clear()

    function choose() { asking.enabled = true; chooser.choose("movies", "Add Footage") }
    Connections {
        id: asking
        target: chooser
        enabled: false
        function onChosen(kind, paths) { enabled = false; if (kind === "movies") footageSheet.take(paths) }
        function onUnavailable(kind) { enabled = false; picker.active = true; picker.item.takeFocus() }
    }

    Column {
        width: parent.width
        spacing: Theme.wide

        Rectangle {
            width: parent.width
            height: picker.active ? 150 : 268
            radius: Theme.radius
            color: Theme.canvas
            border.color: list.activeFocus ? Theme.accent : Theme.line
            ListView {
                id: list
                anchors.fill: parent
                anchors.margins: Theme.small
                clip: true
                model: footageSheet.files
                activeFocusOnTab: true
                boundsBehavior: Flickable.StopAtBounds
                property bool takesArrows: true
                // A row may be gone once the index has moved.
                function reach(row) { currentIndex = row; forceActiveFocus() }
                Accessible.role: Accessible.List
                Accessible.name: "Files"
                Keys.onDeletePressed: footageSheet.remove(currentIndex)
                Keys.onPressed: (event) => { if (event.key === Qt.Key_Backspace) footageSheet.remove(currentIndex) }
                delegate: Rectangle {
                    id: line
                    required property int index
                    required property string name
                    required property string size
                    required property string length
                    required property string detail
                    required property string problem
                    required property bool looked
                    width: list.width
                    height: 40
                    radius: Theme.small
                    color: touch.hovered || list.activeFocus && list.currentIndex === index ? Theme.hover : "transparent"
                    Accessible.role: Accessible.ListItem
                    Accessible.name: [name, length, size, problem || detail].filter(one => one).join(", ")
                    HoverHandler { id: touch }
                    TapHandler { onTapped: list.reach(line.index) }
                    Icon { x: Theme.gap; anchors.verticalCenter: parent.verticalCenter; side: 16; name: line.problem ? "circle-alert" : "video"; tint: line.problem ? Theme.notice : line.looked ? Theme.text2 : Theme.disabled }
                    Words { x: 34; y: 3; width: parent.width - 250; text: line.name; color: line.problem ? Theme.text3 : Theme.text; elide: Text.ElideMiddle }
                    Words { x: 34; y: 21; width: parent.width - (line.problem ? 130 : 250); text: line.problem || line.detail || (line.looked ? "" : "…"); color: line.problem ? Theme.notice : Theme.text3; font.pixelSize: Theme.noteSize }
                    Words { anchors.right: away.left; anchors.rightMargin: 96; height: parent.height; text: line.length; color: Theme.text2 }
                    Words { anchors.right: away.left; anchors.rightMargin: Theme.gap; height: parent.height; text: line.size; color: Theme.text3 }
                    IconButton { id: away; anchors.right: parent.right; anchors.rightMargin: Theme.small; anchors.verticalCenter: parent.verticalCenter; implicitWidth: Theme.tool; implicitHeight: Theme.tool; side: 13; glyph: "x"; name: "Leave " + line.name + " out"; focusPolicy: Qt.NoFocus; onClicked: footageSheet.remove(line.index) }
                }
            }
            Column {
                anchors.centerIn: parent
                visible: footageSheet.count === 0
                spacing: Theme.wide
                Words { anchors.horizontalCenter: parent.horizontalCenter; text: footageSheet.words || "Drop movie files or folders here"; color: Theme.text3 }
            }
        }
        Row {
            width: parent.width
            spacing: Theme.gap
            PushButton { id: chooseButton; text: "Choose Files…"; glyph: "folder-open"; onClicked: sheet.choose() }
            PushButton { visible: footageSheet.reading; text: "Stop"; onClicked: footageSheet.halt() }
            PushButton { visible: footageSheet.only !== ""; text: "Add as Stream…"; onClicked: { const path = footageSheet.only; streamSheet.clear(); streamSheet.take([path]); project.sheet = "addStream" } }
            Words { visible: text !== ""; height: Theme.control; text: footageSheet.count > 0 ? footageSheet.words : ""; color: Theme.text2; leftPadding: Theme.gap; Accessible.role: Accessible.StaticText; Accessible.name: text }
        }
        Loader {
            id: picker
            active: false
            visible: active
            width: parent.width
            height: active ? 200 : 0
            sourceComponent: FilePicker { height: 200; onPicked: (path) => footageSheet.take([path]) }
        }
        Row {
            width: parent.width
            spacing: Theme.wide
            Words { text: "Group"; height: Theme.control; color: Theme.text2 }
            Field { width: 320; name: "Name of the group"; placeholderText: "Name of the folder"; text: footageSheet.group; onTextEdited: footageSheet.group = text; onAccepted: sheet.accept() }
        }
        Row {
            width: parent.width
            spacing: 24
            Tick { text: "Transcribe"; note: footageSheet.whisper === "" ? "Writes down what is said, on this computer, for free" : "What is said can't be written down yet"; checked: footageSheet.transcribe; onToggled: footageSheet.transcribe = checked }
            Tick { text: "Describe"; note: "Titles and summaries by a model, from your OpenRouter key"; checked: footageSheet.describe; enabled: footageSheet.transcribe; onToggled: footageSheet.describe = checked }
        }
        WhisperLack { visible: footageSheet.whisper !== "" && footageSheet.transcribe; text: footageSheet.whisper }
    }
    onVisibleChanged: if (visible) chooseButton.forceActiveFocus()
    Component.onCompleted: chooseButton.forceActiveFocus()
}
