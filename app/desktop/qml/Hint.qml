import QtQuick
import QtQuick.Templates as T

// What a thing is called, while the mouse rests on it or the keys have reached it.
T.ToolTip {
    id: hint

    property Item of
    property string words

    parent: of
    visible: words !== "" && (of.hovered === true || of.visualFocus === true)
    delay: 500
    x: Math.max(Math.min((of.width - implicitWidth) / 2, of.Window.width - of.mapToItem(null, 0, 0).x - implicitWidth - Theme.gap),
                Theme.gap - of.mapToItem(null, 0, 0).x)
    y: of.mapToItem(null, 0, 0).y > 80 ? -implicitHeight - Theme.small : of.height + Theme.small
    implicitWidth: label.implicitWidth + 2 * Theme.gap
    implicitHeight: label.implicitHeight + Theme.gap
    contentItem: Words { id: label; text: hint.words; font.pixelSize: Theme.noteSize; leftPadding: Theme.gap; elide: Text.ElideNone }
    background: Rectangle { color: Theme.raised; radius: Theme.radius; border.color: Theme.line }
}
