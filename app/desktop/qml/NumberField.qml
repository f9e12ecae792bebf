import QtQuick
import QtQuick.Templates as T

// A number to slide and to type. Without ends it is typed alone; `time` writes it as a time on screen.
FocusScope {
    id: field

    property string name
    property real value: 0
    property real from: 0
    property real to: 0
    property real step: 0.01
    property string unit
    property bool mixed: false // several values at once
    property bool time: false
    readonly property bool slides: to > from
    signal moved(real value)   // a piece of a drag
    signal released()          // the drag is over
    signal settled(real value) // typed
    signal reset()             // nothing was typed

    function shown() {
        if (mixed) return "–"
        if (time) return project.fine(value)
        const digits = step >= 1 ? 0 : step >= 0.1 ? 1 : 2
        const words = (Math.abs(value) < Math.pow(10, -digits) / 2 ? 0 : value).toFixed(digits)
        return words.replace("-", "−") + (unit ? " " + unit : "")
    }
    function take() {
        const words = box.text.trim()
        if (words === shown()) return
        if (words === "") return reset()
        const typed = time ? project.seconds(words) : parseFloat(words.replace("−", "-").replace(",", "."))
        if (isFinite(typed)) settled(slides ? Math.max(from, Math.min(to, typed)) : typed)
        box.text = Qt.binding(shown)
    }

    width: parent ? parent.width : 200
    implicitHeight: Theme.control

    Slide {
        id: slide
        property bool byKey: false
        visible: field.slides
        width: field.width - box.width - Theme.gap
        height: Theme.control
        from: field.from
        to: field.to
        stepSize: field.step
        snapMode: T.Slider.SnapAlways
        name: field.name
        opacity: field.mixed ? 0.5 : 1
        onMoved: field.moved(value)
        onPressedChanged: {
            if (!pressed && !byKey) field.released()
            if (!pressed) byKey = false
        }
        Keys.onPressed: (event) => { byKey = true; event.accepted = false }
        Binding { target: slide; property: "value"; value: field.value; when: !slide.pressed; restoreMode: Binding.RestoreNone }
        WheelHandler {
            enabled: slide.activeFocus
            onWheel: (wheel) => field.moved(Math.max(field.from, Math.min(field.to, field.value + field.step * Math.sign(wheel.angleDelta.y))))
        }
    }
    Field {
        id: box
        anchors.right: parent.right
        width: field.slides ? Theme.numberBox : Math.min(field.width, 110)
        name: field.name
        text: field.shown()
        horizontalAlignment: TextInput.AlignRight
        property bool takesEscape: true
        Keys.onEscapePressed: { text = Qt.binding(field.shown); selectAll() }
        onActiveFocusChanged: if (activeFocus) selectAll(); else field.take()
        Keys.onReturnPressed: { field.take(); selectAll() }
        Keys.onEnterPressed: { field.take(); selectAll() }
    }
}
