import QtQuick
import QtQuick.Templates as T

// How the blocks of the timeline are drawn.
T.Popup {
    id: popover

    function openAt(item) {
        const at = item.mapToItem(parent, item.width, 0)
        x = Math.max(at.x - width, Theme.gap)
        y = at.y - height - Theme.small
        open()
    }

    width: 300
    height: rows.implicitHeight + 2 * Theme.wide
    padding: Theme.wide
    modal: true
    focus: true
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutside
    onAboutToShow: { project.menuOpen = true; names.forceActiveFocus(Qt.TabFocusReason) }
    onClosed: project.menuOpen = false
    background: Rectangle { color: Theme.raised; radius: Theme.radius; border.color: Theme.pressed }
    contentItem: FocusScope {
        focus: true
        Keys.onEscapePressed: popover.close()
        Accessible.role: Accessible.Dialog
        Accessible.name: "How the timeline looks"
        Column {
            id: rows
            width: parent.width
            spacing: Theme.small
            Tick { id: names; text: "Names on clips"; checked: timelineAppearance.names; onToggled: timelineAppearance.names = checked }
            LookSlide { name: "Pictures"; to: 120; value: timelineAppearance.filmstrip; said: Math.round(timelineAppearance.filmstrip) + " pt"; onMoved: (value) => timelineAppearance.filmstrip = value }
            LookSlide { name: "Waveform"; to: 80; value: timelineAppearance.waveform; said: Math.round(timelineAppearance.waveform) + " pt"; onMoved: (value) => timelineAppearance.waveform = value }
            Tick { text: "Darken quiet stretches"; checked: timelineAppearance.quiet; onToggled: timelineAppearance.quiet = checked }
            LookSlide { name: "Quiet from"; from: 0.5; to: 10; value: timelineAppearance.quietLeast; said: timelineAppearance.quietLeast.toFixed(1) + " s"; onMoved: (value) => timelineAppearance.quietLeast = value }
        }
    }
}
