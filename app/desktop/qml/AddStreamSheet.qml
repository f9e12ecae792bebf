import QtQuick

// A recording with the moments that were marked in it, and the clips that come of them.
Sheet {
    id: sheet

    title: "Add Stream"
    mainWord: "Add Stream"
    mainEnabled: streamSheet.ready
    onAccepted: { streamSheet.note = note.text; streamSheet.add(); project.sheet = "" }
    Component.onCompleted: (streamSheet.ready ? note : chooseButton).forceActiveFocus()
    Component.onDestruction: streamSheet.clear()

    property bool markersWanted: false
    function choose(markers) { markersWanted = markers; asking.enabled = true; markers ? chooser.choose("markers", "Choose Markers") : chooser.choose("movie", "Choose a Recording") }
    Connections {
        id: asking
        target: chooser
        enabled: false
        function onChosen(kind, paths) { enabled = false; if (kind === "markers" || kind === "movie") streamSheet.take(paths) }
        function onUnavailable(kind) { enabled = false; picker.active = true; picker.item.takeFocus() }
    }

    Column {
        width: parent.width
        spacing: Theme.wide

        Row {
            width: parent.width
            spacing: Theme.wide
            Icon { name: "video"; tint: Theme.text2; anchors.verticalCenter: parent.verticalCenter }
            Column {
                width: parent.width - chooseButton.width - Theme.icon - 2 * Theme.wide
                Words { width: parent.width; text: streamSheet.recording || "Drop a recording here"; color: streamSheet.recording ? Theme.text : Theme.text3; font.weight: Font.DemiBold; elide: Text.ElideMiddle }
                Words { width: parent.width; text: streamSheet.facts; visible: text !== ""; color: Theme.text3; font.pixelSize: Theme.noteSize }
            }
            PushButton { id: chooseButton; text: "Choose…"; onClicked: sheet.choose(false) }
        }
        Rectangle {
            width: parent.width
            height: 64
            radius: Theme.small
            color: Theme.canvas
            clip: true
            Row {
                anchors.fill: parent
                Repeater {
                    model: streamSheet.stills
                    Image { required property string modelData; objectName: "recordingStill"; width: parent.width / 7; height: parent.height; source: modelData; asynchronous: true; fillMode: Image.PreserveAspectCrop; opacity: 0.45 }
                }
            }
            Accessible.role: Accessible.List
            Accessible.name: streamSheet.ready ? streamSheet.clipWords : "No recording yet"
            Repeater {
                model: streamSheet.clips
                Rectangle {
                    required property var modelData
                    x: modelData.from * parent.width
                    width: Math.max((modelData.to - modelData.from) * parent.width, 2)
                    y: 12
                    height: parent.height - 24
                    Accessible.role: Accessible.ListItem
                    Accessible.name: modelData.words
                    radius: Theme.small
                    color: "#B02A323B"
                    border.color: Theme.timeline["cut.edge"]
                    Words { anchors.fill: parent; anchors.margins: 2; horizontalAlignment: Text.AlignHCenter; text: parent.modelData.tag; font.weight: Font.DemiBold; font.pixelSize: Theme.noteSize; elide: Text.ElideNone; visible: implicitWidth < parent.width - 4 }
                }
            }
            Repeater {
                model: streamSheet.marks
                Rectangle {
                    required property real modelData
                    x: modelData * parent.width
                    width: 2
                    height: parent.height
                    color: Theme.picked
                }
            }
        }
        Words { width: parent.width; text: streamSheet.ready ? streamSheet.clipWords : ""; color: Theme.text2; font.pixelSize: Theme.noteSize }
        Row {
            width: parent.width
            spacing: Theme.wide
            Icon { name: "bookmark"; tint: Theme.picked; anchors.verticalCenter: parent.verticalCenter }
            Words { width: parent.width - markersButton.width - Theme.icon - 2 * Theme.wide; height: Theme.control; text: streamSheet.markersWords; color: Theme.text2; elide: Text.ElideMiddle; Accessible.role: Accessible.StaticText; Accessible.name: text }
            PushButton { id: markersButton; text: "Choose…"; Accessible.name: "Choose Markers"; onClicked: sheet.choose(true) }
        }
        Row {
            width: parent.width
            spacing: Theme.wide
            Words { text: "Or times"; width: 70; height: Theme.control; color: Theme.text2 }
            Field { id: times; width: parent.width - 70 - Theme.wide; name: "Times of markers"; placeholderText: "1:23  4:05  1:02:03"; text: streamSheet.typed; onTextEdited: streamSheet.typed = text }
        }
        Row {
            width: parent.width
            spacing: Theme.wide
            Words { text: "Note"; width: 70; height: Theme.control; color: Theme.text2 }
            Field { id: note; width: parent.width - 70 - Theme.wide; name: "Note"; placeholderText: "What this recording is, for models to know"; text: streamSheet.note; onAccepted: sheet.accept() }
        }
        Loader {
            id: picker
            active: false
            visible: active
            width: parent.width
            height: active ? 180 : 0
            sourceComponent: FilePicker { height: 180; wanted: sheet.markersWanted ? "markers" : "movies"; onPicked: (path) => streamSheet.take([path]) }
        }
        Tick { text: "Transcribe"; note: streamSheet.whisper === "" ? "Writes down what is said in the clips, on this computer, for free" : "What is said can't be written down yet"; checked: streamSheet.transcribe; onToggled: streamSheet.transcribe = checked }
        WhisperLack { visible: streamSheet.whisper !== "" && streamSheet.transcribe; text: streamSheet.whisper }
        Rectangle {
            visible: streamSheet.problem !== ""
            width: parent.width
            height: why.implicitHeight + Theme.wide
            radius: Theme.radius
            color: Theme.badCard
            Words { id: why; x: Theme.gap; y: Theme.gap - 2; width: parent.width - Theme.margin; wrapMode: Text.WordWrap; elide: Text.ElideNone; text: streamSheet.problem; Accessible.role: Accessible.AlertMessage; Accessible.name: text }
        }
    }
    foot: [ PushButton { visible: streamSheet.recording !== ""; text: "Add as a File…"; onClicked: { const path = streamSheet.recordingPath; footageSheet.clear(); footageSheet.take([path]); project.sheet = "addFiles" } } ]
}
