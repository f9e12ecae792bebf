import QtQuick
import QtQuick.Templates as T
import Murbo 1.0

// The box with handles round what is picked, on the video's picture.
HandlesView {
    id: handles

    function endEdit(keep) {
        if (!editing.visible) return
        editing.visible = false
        if (keep) handles.setText(editing.text)
        handles.forceActiveFocus(Qt.OtherFocusReason)
    }

    editor: project.editor
    Accessible.role: Accessible.Graphic
    Accessible.name: handles.words
    Accessible.ignored: !handles.shown
    Accessible.focusable: handles.shown
    onEditAsked: { editing.text = handles.text(); editing.visible = true; editing.forceActiveFocus(Qt.MouseFocusReason); editing.selectAll() }
    onShownChanged: if (!shown) endEdit(false)

    Rectangle { visible: handles.guideX >= 0; x: handles.guideX; width: 1; height: parent.height; color: Theme.accent }
    Rectangle { visible: handles.guideY >= 0; y: handles.guideY; height: 1; width: parent.width; color: Theme.accent }
    Item {
        id: box
        visible: handles.shown
        x: handles.centre.x - width / 2
        y: handles.centre.y - height / 2
        width: handles.boxSize.width
        height: handles.boxSize.height
        rotation: handles.turn
        Rectangle { anchors.fill: parent; color: "transparent"; border.color: "#A0000000"; border.width: 3 }
        Rectangle { anchors.fill: parent; anchors.margins: 1; color: "transparent"; border.color: handles.activeFocus ? Theme.accent : Theme.picked; border.width: 1 }
        Rectangle { x: parent.width / 2 - 0.5; y: -handles.knob; width: 1; height: handles.knob; color: Theme.picked }
        Rectangle { x: parent.width / 2 - 6; y: -handles.knob - 6; width: 12; height: 12; radius: 6; color: Theme.canvas; border.color: Theme.picked; border.width: 2 }
        Repeater {
            model: 9
            Rectangle {
                required property int index
                visible: index !== 4
                x: (index % 3) * parent.width / 2 - 4
                y: Math.floor(index / 3) * parent.height / 2 - 4
                width: 8
                height: 8
                color: Theme.picked
                border.color: "#A0000000"
            }
        }
    }
    T.TextField {
        id: editing
        visible: false
        width: Math.max(Math.min(handles.boxSize.width + 2 * Theme.wide, handles.width), 160)
        height: Theme.control + Theme.small
        x: Math.max(Math.min(handles.centre.x - width / 2, handles.width - width), 0)
        y: Math.max(Math.min(handles.centre.y - height / 2, handles.height - height), 0)
        padding: Theme.gap
        color: Theme.text
        font.family: Theme.family
        font.pixelSize: Theme.headingSize
        selectionColor: Theme.accent
        selectedTextColor: Theme.accentText
        horizontalAlignment: TextInput.AlignHCenter
        verticalAlignment: TextInput.AlignVCenter
        Accessible.name: "Text on the picture"
        background: Rectangle { color: "#E617181B"; radius: Theme.radius; border.color: Theme.accent; border.width: Theme.ring }
        // taken here, or it would go on to the box, which opens this again
        Keys.onReturnPressed: handles.endEdit(true)
        Keys.onEnterPressed: handles.endEdit(true)
        onActiveFocusChanged: if (!activeFocus) handles.endEdit(true)
    }
    function cancelEdit() {
        const open = editing.visible
        endEdit(false)
        return open
    }
}
