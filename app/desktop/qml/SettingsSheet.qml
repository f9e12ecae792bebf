import QtQuick

// The settings: what happens to footage, which key gives what, how the timeline looks, fonts of captions.
Sheet {
    id: sheet

    property int pane: ({ "keys": 1, "captionFonts": 3 })[project.sheet] || 0
    property string waiting: "" // the command that takes the next key

    function waitFor(command) {
        waiting = command
        list.forceActiveFocus() // from which keys come up to the sheet; a field would take them
    }
    // While a key is awaited Esc is for this sheet: it ends the waiting and leaves the sheet open.
    onWaitingChanged: project.menuOpen = waiting !== ""
    Component.onDestruction: project.menuOpen = false
    Component.onCompleted: (pane === 1 ? list : panes).forceActiveFocus()

    title: "Settings"
    wide: 720
    cancelWord: "Done"

    Keys.onPressed: (event) => {
        if (!sheet.waiting) return
        event.accepted = true
        if (event.key === Qt.Key_Escape) { sheet.waiting = ""; list.forceActiveFocus(); return }
        const typed = event.key === Qt.Key_Backspace || event.key === Qt.Key_Delete ? "delete" : event.text
        if (settingsSheet.bind(sheet.waiting, typed)) { sheet.waiting = ""; list.forceActiveFocus() }
    }

    Column {
        width: parent.width
        spacing: Theme.wide
        Choice { id: panes; name: "Pane"; words: ["General", "Keys", "Timeline", "Captions"]; chosen: sheet.pane; onPicked: (index) => { sheet.pane = index; sheet.waiting = "" } }
        Item {
            width: parent.width
            height: 390

            Column {
                visible: sheet.pane === 0
                width: parent.width
                spacing: Theme.wide
                SettingTick { name: "transcribeOnAdd"; text: "Transcribe footage as it comes in"; note: "Writes down what is said, on this computer" }
                SettingTick { name: "exportSubtitles"; text: "Subtitles file (.srt) beside a movie"; note: "What the export sheet begins with" }
                SettingSlide { name: "punchZoom"; text: "Punch-in"; note: "How far a punch-in goes"; from: 1.05; to: 3; unit: "×"; digits: 2 }
                SettingText { name: "language"; text: "Language"; note: settingsSheet.languageName + ": spoken in footage of projects that have no language of their own" }
                SettingText { name: "libraryFolder"; text: "Library"; glyph: "folder"; note: "Playbooks and caption styles; an empty field is the standard folder again" }
                SettingText { name: "soundsFolder"; text: "Sounds"; glyph: "folder"; note: "Sound effects, in folders by kind" }
                SettingText { name: "musicFolder"; text: "Music"; glyph: "folder"; note: "Songs, in folders by kind" }
            }
            Column {
                visible: sheet.pane === 1
                width: parent.width
                spacing: Theme.gap
                Field { width: parent.width; name: "Search the keys"; glyph: "search"; placeholderText: "Search commands and keys"; onTextEdited: settingsSheet.search = text; Keys.onDownPressed: list.forceActiveFocus(); Component.onDestruction: settingsSheet.search = "" }
                Words { width: parent.width; color: sheet.waiting ? Theme.accent : Theme.text3; text: sheet.waiting ? "Press the key that it shall have, or Esc" : settingsSheet.moved || "Click a command, or press Enter on it, then press its key"
                        Accessible.role: Accessible.AlertMessage; Accessible.name: text }
                Rectangle {
                    width: parent.width
                    height: 282
                    radius: Theme.radius
                    color: Theme.canvas
                    border.color: list.activeFocus ? Theme.accent : Theme.line
                    ListView {
                        id: list
                        anchors.fill: parent
                        anchors.margins: Theme.small
                        clip: true
                        model: settingsSheet.keys
                        activeFocusOnTab: true
                        boundsBehavior: Flickable.StopAtBounds
                        property bool takesArrows: true
                        property int stands: 0 // the model is new after each change: the place in it stays
                        onCurrentIndexChanged: if (activeFocus) stands = currentIndex
                        function press(row, command) { stands = row; currentIndex = row; sheet.waitFor(command) } // the row may be gone by then
                        onModelChanged: { currentIndex = stands; positionViewAtIndex(stands, ListView.Contain) }
                        Accessible.role: Accessible.List
                        Accessible.name: "Keys"
                        Keys.onReturnPressed: sheet.waitFor(settingsSheet.keys[currentIndex].command)
                        Keys.onEnterPressed: sheet.waitFor(settingsSheet.keys[currentIndex].command)
                        delegate: Rectangle {
                            id: line
                            required property int index
                            required property var modelData
                            readonly property bool waits: sheet.waiting === modelData.command
                            width: list.width
                            height: Theme.row
                            radius: Theme.small
                            color: waits ? Theme.pressed : touch.containsMouse || list.activeFocus && list.currentIndex === index ? Theme.hover : "transparent"
                            Accessible.role: Accessible.ListItem
                            Accessible.name: modelData.title + ", " + modelData.key
                            Accessible.onPressAction: sheet.waitFor(modelData.command)
                            Words { x: Theme.gap; height: parent.height; text: line.modelData.title }
                            Words { anchors.right: parent.right; anchors.rightMargin: Theme.wide; height: parent.height; text: line.waits ? "…" : line.modelData.key; color: line.waits ? Theme.accent : Theme.text2 }
                            MouseArea { id: touch; anchors.fill: parent; hoverEnabled: true; onClicked: list.press(line.index, line.modelData.command) }
                        }
                    }
                }
                PushButton { text: "Use Standard Keys"; onClicked: settingsSheet.useStandardKeys() }
            }
            Column {
                visible: sheet.pane === 2
                width: parent.width
                spacing: Theme.wide
                SettingTick { name: "clipNames"; text: "Names on clips"; note: "Tags and titles on the timeline's blocks" }
                SettingTick { name: "clipQuiet"; text: "Darken quiet stretches"; note: "Where nobody speaks" }
                SettingSlide { name: "quietLeast"; text: "Quiet from"; note: "The shortest stretch that counts as quiet"; from: 0.2; to: 10; unit: " s"; digits: 1 }
                SettingSlide { name: "clipFilmstrip"; text: "Filmstrip"; note: "Height of the pictures on a clip"; from: 0; to: 120; unit: " pt" }
                SettingSlide { name: "clipWaveform"; text: "Waveform"; note: "Height of the sound on a clip"; from: 0; to: 80; unit: " pt" }
                SettingSlide { name: "snapReach"; text: "Snapping"; note: "How near a drag comes before it snaps"; from: 0; to: 40; unit: " pt" }
            }
            Column {
                visible: sheet.pane === 3
                width: parent.width
                spacing: Theme.wide
                FontOrder { width: parent.width }
                Words { visible: captions.saved.length > 0; text: "Saved styles"; color: Theme.text3; font.weight: Font.DemiBold; font.pixelSize: Theme.noteSize; topPadding: Theme.gap }
                ListView {
                    width: parent.width
                    height: Math.min(count * Theme.control, 4 * Theme.control)
                    clip: true
                    boundsBehavior: Flickable.StopAtBounds
                    model: captions.saved
                    Accessible.role: Accessible.List
                    Accessible.name: "Saved styles"
                    delegate: Row {
                        id: style
                        required property var modelData
                        height: Theme.control
                        spacing: Theme.gap
                        Words { text: style.modelData.name; width: 300; height: Theme.control }
                        PushButton { text: "Rename…"; Accessible.name: "Rename " + style.modelData.name; onClicked: { captions.meanPreset(style.modelData.row); project.sheet = "renamePreset" } }
                        PushButton { text: "Remove"; Accessible.name: "Remove " + style.modelData.name; onClicked: { captions.meanPreset(style.modelData.row); captions.removePreset() } }
                    }
                }
            }
        }
    }
    foot: [
        Words { visible: settingsSheet.problem !== ""; width: parent.width; height: parent.height; text: settingsSheet.problem; color: Theme.bad }
    ]
}
