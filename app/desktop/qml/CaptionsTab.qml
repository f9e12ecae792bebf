import QtQuick
import Murbo 1.0

// How captions look, and the list of them.
FocusScope {
    id: tab

    function takeFocus() { list.forceActiveFocus(Qt.TabFocusReason) }

    // The list's captions are picked on the timeline, and have its menu.
    function openMenu() {
        const item = list.itemAtIndex(captions.list.pickedRow)
        const at = item ? item.mapToItem(null, Theme.wide, Theme.control) : mapToItem(null, Theme.wide, Theme.control)
        if (item) context.openPoint(at.x, at.y, project.contextMenu("caption"))
        else { captions.meanPreset(-1); context.openPoint(at.x, at.y, project.contextMenu("preset")) }
    }
    MenuList { id: context }
    Component.onDestruction: captions.watched = false

    Words {
        anchors.centerIn: parent
        width: parent.width - 2 * Theme.margin
        visible: !captions.hasVideo && !captions.ofProject
        text: "Captions belong to a video: open or make one first"
        color: Theme.text3
        wrapMode: Text.WordWrap
        elide: Text.ElideNone
        horizontalAlignment: Text.AlignHCenter
    }
    ListView {
        id: list
        anchors.fill: parent
        visible: captions.hasVideo || captions.ofProject
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        model: captions.list
        activeFocusOnTab: true
        property bool takesArrows: true
        property bool upAndDown: true
        cacheBuffer: 0
        Accessible.role: Accessible.List
        Accessible.name: "Captions, " + count
        Keys.onUpPressed: captions.list.pick(Math.max(captions.list.pickedRow - 1, 0))
        Keys.onDownPressed: captions.list.pick(Math.min(captions.list.pickedRow + 1, count - 1))
        Keys.onReturnPressed: { const item = itemAtIndex(captions.list.pickedRow); if (item) item.edit() }
        // The cards above come after the list: until somebody scrolls it begins with them.
        property bool untouched: true
        onMovementStarted: untouched = false
        function toTop() { if (untouched) positionViewAtBeginning() }
        Connections { target: list.headerItem; function onHeightChanged() { Qt.callLater(list.toTop) } }
        // It opens with the styles, and goes to a caption that is picked from then on: not anew with each change.
        property int stood: -1
        function showPicked() {
            stood = captions.list.pickedRow
            if (stood < 0) return
            untouched = false
            positionViewAtIndex(stood, ListView.Contain)
        }
        Component.onCompleted: { captions.watched = true; stood = captions.list.pickedRow }
        Connections { target: captions.list; enabled: captions.watched; function onPickedChanged() { if (captions.list.pickedRow !== list.stood) list.showPicked() } }
        Connections { target: project; function onVerb(name) { if (name === "caption.show") list.showPicked() } }
        delegate: CaptionItem { onMenuAsked: (px, py) => context.openPoint(px, py, project.contextMenu("caption")) }

        header: Column {
            id: head
            readonly property var fields: captions.fields
            width: list.width
            spacing: Theme.gap
            bottomPadding: Theme.gap

            Item {
                x: Theme.margin
                width: parent.width - 2 * Theme.margin
                height: Theme.control
                Tick { anchors.verticalCenter: parent.verticalCenter; text: "Captions"; enabled: captions.hasVideo; checked: captions.on; onClicked: { captions.on = checked; checked = Qt.binding(() => captions.on) } }
                Choice { anchors.right: parent.right; name: "Whose style"; words: ["This Video", "Project"]; chosen: captions.ofProject ? 1 : 0; onPicked: (index) => captions.ofProject = index === 1 }
            }
            Grid {
                id: cards
                x: Theme.wide
                columns: list.width >= 380 ? 3 : 2
                spacing: Theme.gap
                readonly property real cardWidth: Math.floor((list.width - 2 * Theme.wide - (columns - 1) * spacing) / columns)
                readonly property real pictureHeight: Math.round(cardWidth * 0.58)
                function tellSize() { captions.setCardSize((cardWidth - 2 * Theme.ring) * Screen.devicePixelRatio, (pictureHeight - Theme.ring) * Screen.devicePixelRatio) }
                onCardWidthChanged: tellSize()
                Component.onCompleted: tellSize()
                Accessible.role: Accessible.Grouping
                Accessible.name: "Caption styles"
                Repeater {
                    model: captions.presets
                    PresetCard {
                        required property int index
                        required property var model
                        width: cards.cardWidth
                        height: cards.pictureHeight + Theme.tool
                        name: model.name
                        picture: model.picture
                        chosen: model.chosen
                        onClicked: captions.pickPresetAt(index)
                        onMenuAsked: (px, py) => { captions.meanPreset(index); context.openPoint(px, py, project.contextMenu("preset")) }
                    }
                }
            }
            Section {
                name: "Style"
                key: "captionStyles.open"
                Repeater {
                    model: head.fields.length
                    StyleControl { required property int index; field: head.fields[index] }
                }
                Item {
                    width: parent.width
                    height: Theme.control + Theme.gap
                    Field {
                        id: presetName
                        x: Theme.margin
                        anchors.bottom: parent.bottom
                        width: parent.width - save.width - Theme.margin - Theme.wide - Theme.gap
                        name: "Name of the preset"
                        placeholderText: "Name"
                        Keys.onReturnPressed: save.clicked()
                        Keys.onEnterPressed: save.clicked()
                    }
                    PushButton { id: save; anchors.right: parent.right; anchors.rightMargin: Theme.wide; anchors.bottom: parent.bottom; text: "Save as Preset"; enabled: captions.hasVideo && presetName.text.trim() !== ""
                                 onClicked: if (captions.savePreset(presetName.text)) { presetName.text = ""; tab.takeFocus() } }
                }
            }
            Words { x: Theme.margin; height: Theme.tool; text: list.count === 1 ? "1 caption" : list.count + " captions"; color: Theme.text3; font.pixelSize: Theme.noteSize }
        }
    }
}
