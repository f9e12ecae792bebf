import QtQuick

// The line between two regions: dragged, or moved by arrows once it has the focus; a double click or Enter puts
// it back. The place that can be taken is wider than the line.
FocusScope {
    id: splitter

    property string region // whose size it sets
    property string name
    property bool upright: false // the line goes from top to bottom
    property real size // of the region now
    property bool before: false // the region lies before the line
    readonly property bool takesArrows: true
    readonly property int way: before ? 1 : -1

    function moveTo(size) { splitters.set(region, Window.width, Math.max(size, 1)) }
    function step(by) { moveTo(splitter.size + way * by) }

    readonly property int reach: 12 // to either side of the line

    width: upright ? 2 * reach + 1 : parent.width
    height: upright ? parent.height : 2 * reach + 1
    activeFocusOnTab: true
    Accessible.role: Accessible.Splitter
    Accessible.name: name
    Accessible.focusable: true
    Accessible.onIncreaseAction: moveTo(size + Theme.gap)
    Accessible.onDecreaseAction: moveTo(size - Theme.gap)
    Keys.onPressed: (event) => {
        const far = event.modifiers & Qt.ShiftModifier ? 4 * Theme.gap : Theme.gap
        const forward = upright ? Qt.Key_Right : Qt.Key_Down
        const backward = upright ? Qt.Key_Left : Qt.Key_Up
        event.accepted = true
        if (event.key === forward) step(far)
        else if (event.key === backward) step(-far)
        else if (event.key === Qt.Key_Return || event.key === Qt.Key_Enter) splitters.set(region, Window.width, 0)
        else event.accepted = false
    }

    Rectangle { // found by the eye when the hand or the keys are on it
        x: splitter.upright ? splitter.reach : 0
        y: splitter.upright ? 0 : splitter.reach
        readonly property int thick: splitter.activeFocus || area.pressed ? 2 : 1
        width: splitter.upright ? thick : parent.width
        height: splitter.upright ? parent.height : thick
        color: splitter.activeFocus || area.pressed ? Theme.accent : area.containsMouse ? Theme.fieldEdge : Theme.line
    }
    MouseArea {
        id: area
        property real from: 0 // in the window
        property real start: 0 // the region's size then
        function at(mouse) { const point = mapToItem(null, mouse.x, mouse.y); return splitter.upright ? point.x : point.y }
        anchors.centerIn: parent
        width: splitter.upright ? Theme.gap : parent.width
        height: splitter.upright ? parent.height : Theme.gap
        hoverEnabled: true
        cursorShape: splitter.upright ? Qt.SplitHCursor : Qt.SplitVCursor
        preventStealing: true
        onPressed: (mouse) => { from = at(mouse); start = splitter.size }
        onPositionChanged: (mouse) => { if (pressed && at(mouse) !== from) splitters.hold(splitter.region, splitter.Window.width, start + splitter.way * (at(mouse) - from)) }
        onReleased: (mouse) => { if (at(mouse) !== from) splitter.moveTo(splitter.size) }
        onCanceled: splitters.set(splitter.region, splitter.Window.width, start)
        onDoubleClicked: splitters.set(splitter.region, splitter.Window.width, 0)
    }
}
