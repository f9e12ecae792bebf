import QtQuick

// One field of a caption style with its control.
Labelled {
    id: row

    property var field

    width: parent ? parent.width : 0
    name: field.name
    changed: field.changed
    onReset: captions.reset(field.key)

    Loader {
        id: loader
        width: parent.width
        sourceComponent: ({ "number": number, "colour": shade, "shade": shade, "flag": flag, "choice": choice, "fonts": fonts })[row.field.kind]
    }
    Component {
        id: number
        NumberField {
            width: loader.width
            name: row.field.name
            from: row.field.from
            to: row.field.to
            step: row.field.step
            unit: row.field.unit
            value: row.field.value
            onMoved: (value) => captions.settle(row.field.key, value)
            onSettled: (value) => captions.set(row.field.key, value)
            onReset: captions.reset(row.field.key)
        }
    }
    Component {
        id: shade
        ShadeField {
            name: row.field.name
            value: row.field.value
            none: row.field.kind === "shade"
            onPicked: (value) => captions.set(row.field.key, value)
        }
    }
    Component {
        id: flag
        Tick {
            height: Theme.control
            text: row.field.value ? "on" : "off"
            Accessible.name: row.field.name
            checked: row.field.value
            onClicked: { captions.set(row.field.key, checked); checked = Qt.binding(() => row.field.value) }
        }
    }
    Component {
        id: choice
        DropDown {
            width: loader.width
            name: row.field.name
            words: row.field.words.map(word => word.charAt(0).toUpperCase() + word.slice(1))
            chosen: Math.max(row.field.words.indexOf(row.field.value), 0)
            onPicked: (index) => captions.set(row.field.key, row.field.words[index])
        }
    }
    Component {
        id: fonts
        Field {
            width: loader.width
            name: row.field.name
            text: row.field.value
            placeholderText: "As in Settings"
            function take() { if (text.trim() !== row.field.value) captions.set(row.field.key, text.trim()); text = Qt.binding(() => row.field.value) }
            onActiveFocusChanged: if (!activeFocus) take()
            Keys.onReturnPressed: take()
            Keys.onEnterPressed: take()
        }
    }
}
