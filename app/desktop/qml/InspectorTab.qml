import QtQuick
import QtQuick.Window

// What is picked, and what can be set about it.
Item {
    id: view

    // A row's section by its place: what a folded one holds is not shown.
    property var folds: ({})
    function fold(id, open) {
        inspectorPanel.setOpen(id, open)
        const now = Object.assign({}, folds)
        now[id] = open
        folds = now
    }
    function isOpen(id) { return id in folds ? folds[id] : inspectorPanel.isOpen(id) }

    Binding { target: inspectorPictures; property: "watched"; value: view.visible; restoreMode: Binding.RestoreNone }
    Component.onDestruction: inspectorPictures.watched = false

    // What the keys reach is brought into sight.
    readonly property Item reached: Window.activeFocusItem
    onReachedChanged: {
        for (let item = reached; item; item = item.parent) {
            if (item !== body) continue
            const y = reached.mapToItem(body, 0, 0).y
            flick.contentY = Math.max(0, Math.min(y - Theme.gap, Math.max(flick.contentY, y + reached.height + Theme.gap - flick.height)))
        }
    }

    Flickable {
        id: flick
        anchors.fill: parent
        contentHeight: body.height + Theme.margin
        clip: true
        boundsBehavior: Flickable.StopAtBounds

        Column {
            id: body
            width: flick.width
            spacing: Theme.small

            Item {
                width: parent.width
                height: title.height + (note.visible ? note.height : 0) + Theme.wide
                Words { id: title; x: Theme.margin; width: parent.width - 2 * Theme.margin; height: 24; text: inspection.title
                        font.pixelSize: Theme.headingSize; font.weight: Font.DemiBold
                        Accessible.role: Accessible.Heading; Accessible.name: text }
                Words { id: note; x: Theme.margin; y: title.height; width: title.width; height: 16; visible: text !== ""; text: inspection.note
                        font.pixelSize: Theme.noteSize; color: Theme.text3 }
            }
            Words {
                visible: inspection.kind === "nothing"
                x: Theme.margin
                width: parent.width - 2 * Theme.margin
                text: "Pick a clip in the browser or a block on the timeline"
                color: Theme.text3
                wrapMode: Text.WordWrap
                elide: Text.ElideNone
            }
            Repeater {
                model: inspection.rows
                InspectorLine { width: body.width; tab: view }
            }
            Labelled {
                visible: inspection.kind === "several"
                PushButton { width: parent.width; text: "Remove " + inspection.count + " Items"; onClicked: inspection.removePicked() }
            }
        }
    }
    ScrollMark { of: flick }
    FileAsking { width: parent.width; height: Math.min(parent.height, 400); anchors.bottom: parent.bottom }
}
