import QtQuick

// One row of the Inspector tab: the control that its kind asks for.
Item {
    id: line

    required property string control
    required property var row
    property Item tab
    readonly property bool live: row.id.startsWith("value.") // the picture follows what is typed

    visible: row.section === "" || control === "section" || tab.isOpen(row.section)
    implicitHeight: visible && loader.item ? loader.item.implicitHeight : 0
    height: implicitHeight

    Loader {
        id: loader
        width: line.width
        sourceComponent: ({ section: section, words: words, text: text, lines: lines, number: number, time: number, choice: choice,
                            toggle: toggle, colour: colour, media: media, button: button, layouts: layouts, picture: picture, wave: wave })[line.control]
    }

    Component {
        id: section
        SectionHead { name: line.row.name; open: line.tab.isOpen(line.row.id); onToggled: line.tab.fold(line.row.id, !open) }
    }
    Component {
        id: words
        Labelled {
            name: line.row.name
            Words { width: parent.width; height: Math.max(implicitHeight, Theme.control); topPadding: 5; bottomPadding: 5; text: line.row.current; wrapMode: Text.Wrap; elide: Text.ElideNone
                    Accessible.role: Accessible.StaticText; Accessible.name: (line.row.name ? line.row.name + ": " : "") + text }
        }
    }
    Component {
        id: text
        Labelled {
            name: line.row.name
            changed: line.row.changed
            onReset: inspection.reset(line.row.id)
            LineField { width: parent.width; name: line.row.name; held: line.row.current; mixed: line.row.mixed
                onDragged: (text) => { if (line.live) inspection.drag(line.row.id, text) }
                onSettled: (text) => line.live ? inspection.release() : inspection.set(line.row.id, text)
                onCancelled: inspection.cancel() }
        }
    }
    Component {
        id: lines
        Labelled {
            name: line.row.name
            changed: line.row.changed
            high: true
            onReset: inspection.reset(line.row.id)
            TextBox { width: parent.width; name: line.row.name; held: line.row.current; onSettled: (text) => inspection.set(line.row.id, text) }
        }
    }
    Component {
        id: number
        Labelled {
            name: line.row.name
            changed: line.row.changed
            onReset: inspection.reset(line.row.id)
            NumberField { name: line.row.name; value: line.row.current; from: line.row.from; to: line.row.to; step: line.row.step
                unit: line.row.unit; mixed: line.row.mixed; time: line.control === "time"
                onMoved: (value) => inspection.drag(line.row.id, value)
                onReleased: inspection.release()
                onSettled: (value) => inspection.set(line.row.id, value)
                onReset: inspection.reset(line.row.id) }
        }
    }
    Component {
        id: choice
        Labelled {
            id: named
            readonly property bool few: line.row.options.length < 4 && line.row.options.join("").length < 17
            name: line.row.name
            changed: line.row.changed
            onReset: inspection.reset(line.row.id)
            Choice { visible: named.few; name: line.row.name; words: named.few ? line.row.options : []; chosen: line.row.mixed ? -1 : line.row.current
                     onPicked: (index) => inspection.set(line.row.id, index) }
            DropDown { visible: !named.few; height: visible ? implicitHeight : 0; name: line.row.name; words: named.few ? [] : line.row.options
                       chosen: line.row.current; mixed: line.row.mixed; onPicked: (index) => inspection.set(line.row.id, index) }
        }
    }
    Component {
        id: toggle
        Item {
            implicitHeight: Theme.control
            Tick { x: Theme.label; y: 2; text: line.row.name; checkState: line.row.mixed ? Qt.PartiallyChecked : line.row.current ? Qt.Checked : Qt.Unchecked
                   tristate: line.row.mixed; nextCheckState: () => { inspection.set(line.row.id, line.row.mixed || !line.row.current); return checkState } }
        }
    }
    Component {
        id: colour
        Labelled {
            name: line.row.name
            changed: line.row.changed
            onReset: inspection.reset(line.row.id)
            ColourField { name: line.row.name; held: line.row.current; mixed: line.row.mixed
                onDragged: (colour) => inspection.drag(line.row.id, colour)
                onSettled: (colour) => inspection.set(line.row.id, colour)
                onCancelled: inspection.cancel()
                onReset: inspection.reset(line.row.id) }
        }
    }
    Component {
        id: media
        Labelled {
            name: line.row.name
            changed: line.row.changed
            onReset: inspection.reset(line.row.id)
            LineField { id: path; width: parent.width - file.width - range.width - 2 * Theme.gap; name: line.row.name; held: line.row.current; mixed: line.row.mixed
                onSettled: (text) => inspection.set(line.row.id, text) }
            IconButton { id: file; anchors.right: range.left; anchors.rightMargin: Theme.gap; glyph: "folder-open"; name: "Choose a file for " + line.row.name; onClicked: inspection.askFile(line.row.id) }
            PushButton { id: range; anchors.right: parent.right; text: "Range"; keys: "Pick the stretch that is marked in the source viewer"
                onClicked: inspection.takeRange(line.row.id) }
        }
    }
    Component {
        id: button
        Item {
            implicitHeight: Theme.control
            PushButton { x: Theme.label; width: parent.width - x - Theme.wide; text: line.row.name; onClicked: inspection.press(line.row.id) }
        }
    }
    Component { id: layouts; LayoutCards { chosen: line.row.current; mixed: line.row.mixed; onPicked: (layout) => inspection.set(line.row.id, layout) } }
    Component { id: picture; InspectedPicture { } }
    Component { id: wave; InspectedWave { } }
}
