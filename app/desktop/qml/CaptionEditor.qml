import QtQuick

// The words of a caption, edited where it lies on the timeline. Enter keeps them, Ctrl+Enter breaks the caption at
// the caret, Esc gives them back.
Field {
    id: editor

    property string line
    property int piece: -1
    property bool open: false
    signal ended()

    function start(place, which, part) {
        end(true)
        line = which
        piece = part
        width = Math.min(Math.max(place.width, 220), parent.width - 2 * Theme.gap)
        x = Math.max(Theme.gap, Math.min(place.x, parent.width - width - Theme.gap))
        y = place.y + (place.height - height) / 2
        text = captions.words(line, piece)
        open = true
        forceActiveFocus(Qt.PopupFocusReason)
        selectAll()
    }
    function end(keep) {
        if (!open) return
        open = false
        if (keep) captions.retext(line, piece, text)
        if (activeFocus) ended()
    }
    function giveBack() {
        const was = open
        end(false)
        return was
    }
    function breakHere() {
        open = false
        captions.breakAt(line, piece, text, cursorPosition)
        ended()
    }

    visible: open
    z: 2
    name: "Words of the caption"
    Keys.onPressed: (event) => {
        if (event.key !== Qt.Key_Return && event.key !== Qt.Key_Enter) return
        if (event.modifiers & Qt.ControlModifier) breakHere()
        else end(true)
        event.accepted = true
    }
    onActiveFocusChanged: if (!activeFocus) end(true)
    Connections { target: project; function onAboutToAct() { editor.end(true) } }
}
