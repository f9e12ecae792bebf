import QtQuick

// A place from which something can be carried elsewhere by the mouse. One move is enough to begin, however far it
// goes, and what is carried lands where the button is let go: a busy program is given all moves of a fast hand as
// one, and a MouseArea's own drag would begin with the one after.
MouseArea {
    id: area

    // What goes with the hand, by the hot spot of its Drag; null where nothing can be carried.
    property Item ghost: null
    property real threshold: 8
    readonly property bool carries: hidden.carries
    readonly property bool hasCarried: hidden.hasCarried // since the press: what is let go then is no click

    function follow(mouse) {
        const at = mapToItem(ghost.parent, mouse.x, mouse.y)
        ghost.x = at.x - ghost.Drag.hotSpot.x
        ghost.y = at.y - ghost.Drag.hotSpot.y
    }

    preventStealing: true // or a list would take a drag that goes down
    onPressed: (mouse) => { hidden.from = Qt.point(mouse.x, mouse.y); hidden.hasCarried = false }
    onPositionChanged: (mouse) => {
        if (!ghost || !(mouse.buttons & Qt.LeftButton)) return
        const far = Math.max(Math.abs(mouse.x - hidden.from.x), Math.abs(mouse.y - hidden.from.y)) > threshold
        if (!carries && !far) return
        follow(mouse)
        hidden.hasCarried = true
        hidden.carries = true
    }
    onReleased: (mouse) => {
        if (!carries) return
        follow(mouse)
        ghost.Drag.start() // anew: the way there may not have been taken yet
        ghost.Drag.drop()
        hidden.carries = false
    }
    onCanceled: hidden.carries = false

    QtObject {
        id: hidden
        property bool carries: false
        property bool hasCarried: false
        property point from
    }
}
