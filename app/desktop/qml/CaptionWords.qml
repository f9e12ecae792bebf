import QtQuick
import QtQuick.Templates as T

// The words of a caption's line: a press on one has it stand out, a press between two breaks the line there.
Column {
    id: strip

    width: parent ? parent.width : 0
    leftPadding: Theme.wide
    rightPadding: Theme.wide
    bottomPadding: Theme.gap
    spacing: Theme.gap

    Flow {
        width: parent.width - 2 * Theme.wide
        spacing: 0
        Repeater {
            model: captions.list.pickedWords
            Row {
                id: word
                required property int index
                required property var modelData
                T.AbstractButton {
                    id: gap
                    visible: word.index > 0
                    width: Theme.tool
                    height: Theme.control
                    focusPolicy: Qt.TabFocus
                    hoverEnabled: true
                    text: word.modelData.begins ? "Join here" : "Break here"
                    Accessible.role: Accessible.Button
                    Accessible.name: text + ", before " + word.modelData.words
                    Accessible.onPressAction: clicked()
                    Keys.onReturnPressed: clicked()
                    onClicked: captions.list.toggleBreak(word.index)
                    background: Item {
                        Rectangle { anchors.centerIn: parent; width: 2; height: parent.height - Theme.gap; radius: 1
                                    color: word.modelData.begins ? Theme.picked : gap.hovered || gap.visualFocus ? Theme.text3 : Theme.pressed }
                        Ring { around: gap }
                    }
                    Hint { of: gap; words: gap.text }
                }
                T.AbstractButton {
                    id: face
                    implicitWidth: Math.max(label.implicitWidth + Theme.gap, Theme.tool)
                    height: Theme.control
                    focusPolicy: Qt.TabFocus
                    hoverEnabled: true
                    text: word.modelData.stressed ? "Plain" : "Stand out"
                    checkable: true // what makes it a tick to a screen reader
                    checked: word.modelData.stressed
                    Accessible.name: word.modelData.words + ", stands out"
                    Accessible.checked: word.modelData.stressed
                    Accessible.onPressAction: clicked()
                    Keys.onReturnPressed: clicked()
                    onClicked: { captions.list.toggleStress(word.index); checked = Qt.binding(() => word.modelData.stressed) }
                    contentItem: Words { id: label; text: word.modelData.words; horizontalAlignment: Text.AlignHCenter; elide: Text.ElideNone
                                         color: word.modelData.stressed ? Theme.picked : Theme.text; font.weight: word.modelData.stressed ? Font.DemiBold : Font.Normal }
                    background: Rectangle { radius: Theme.small; color: face.hovered ? Theme.pressed : Theme.hover; border.width: word.modelData.stressed ? 1 : 0; border.color: Theme.picked
                        Ring { around: face } }
                }
            }
        }
    }
    Row {
        spacing: Theme.gap
        Words { height: Theme.control; text: "From"; color: Theme.text3 }
        NumberField { width: 84; name: "Start of the caption"; time: true; value: captionTimes.start; onSettled: (time) => captionTimes.set(true, time) }
        Words { height: Theme.control; text: "to"; color: Theme.text3 }
        NumberField { width: 84; name: "End of the caption"; time: true; value: captionTimes.end; onSettled: (time) => captionTimes.set(false, time) }
    }
    Row {
        spacing: Theme.gap
        PushButton { text: "Edit"; onClicked: strip.edit() }
        PushButton { text: "Join"; visible: captions.list.canJoin; onClicked: captions.list.join() }
        PushButton { text: "Reset Caption Timing"; visible: captions.list.canReset; onClicked: captions.list.resetTiming() }
    }
    function edit() { if (parent && parent.parent && parent.parent.edit) parent.parent.edit() }
}
