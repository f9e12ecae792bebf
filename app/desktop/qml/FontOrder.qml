import QtQuick
import Murbo 1.0

// The families that captions fall back to, in their order.
Column {
    id: order

    spacing: Theme.gap
    Component.onDestruction: captionFonts.watched = false
    onVisibleChanged: captionFonts.watched = visible
    Component.onCompleted: captionFonts.watched = visible

    Words { width: parent.width; text: "Fonts for letters that a caption's own font lacks, tried from the top"; color: Theme.text2 }
    Rectangle {
        width: parent.width
        height: 4 * list.step + 2 * Theme.small
        radius: Theme.radius
        color: Theme.canvas
        border.color: list.activeFocus ? Theme.accent : Theme.line
        Words { anchors.centerIn: parent; visible: list.count === 0; text: "None: the fonts that come with Murbo, then any that has the letter"; color: Theme.text3 }
        ListView {
            id: list
            readonly property int step: 40
            property bool takesArrows: true
            property int stands: 0   // the model is new after each change: the place in it stays
            property int target: -1  // where what is dragged would come to stand
            anchors.fill: parent
            anchors.margins: Theme.small
            clip: true
            model: captionFonts.rows
            activeFocusOnTab: true
            boundsBehavior: Flickable.StopAtBounds
            onCurrentIndexChanged: if (activeFocus) stands = currentIndex
            onModelChanged: { currentIndex = Math.min(stands, count - 1); positionViewAtIndex(currentIndex, ListView.Contain) }
            Accessible.role: Accessible.List
            Accessible.name: "Fonts of captions"
            function place(from, to) { stands = to; captionFonts.move(from, to) }
            Keys.onPressed: (event) => {
                const by = event.key === Qt.Key_Up ? -1 : event.key === Qt.Key_Down ? 1 : 0
                if (by && event.modifiers & Qt.AltModifier) { event.accepted = true; if (currentIndex + by >= 0 && currentIndex + by < count) place(currentIndex, currentIndex + by) }
                if (event.key === Qt.Key_Delete || event.key === Qt.Key_Backspace) { event.accepted = true; captionFonts.remove(currentIndex) }
            }
            delegate: Rectangle {
                id: line
                required property int index
                required property var modelData
                width: list.width
                height: list.step
                radius: Theme.small
                color: drag.pressed ? Theme.pressed : over.hovered || list.activeFocus && list.currentIndex === index ? Theme.hover : "transparent"
                Accessible.role: Accessible.ListItem
                Accessible.name: modelData.family + (modelData.installed ? "" : ", not installed on this computer")
                Icon { x: Theme.gap; anchors.verticalCenter: parent.verticalCenter; name: "grip-vertical"; tint: Theme.text3; side: 16 }
                Words { x: 36; width: 200; height: parent.height; text: line.modelData.family }
                PictureView { visible: line.modelData.installed; x: 244; y: 3; width: 340; height: parent.height - 6; picture: line.modelData.picture }
                Words { visible: !line.modelData.installed; x: 244; height: parent.height; text: "not installed on this computer"; color: Theme.notice }
                HoverHandler { id: over }
                MouseArea {
                    id: drag
                    anchors.fill: parent
                    preventStealing: true
                    cursorShape: pressed ? Qt.ClosedHandCursor : Qt.OpenHandCursor
                    onPressed: { list.stands = line.index; list.currentIndex = line.index; list.forceActiveFocus() }
                    onPositionChanged: (mouse) => { const y = mapToItem(list.contentItem, 0, mouse.y).y; list.target = Math.max(0, Math.min(list.count - 1, Math.floor(y / list.step))) }
                    onReleased: { if (list.target >= 0) Qt.callLater(list.place, line.index, list.target); list.target = -1 }
                    onCanceled: list.target = -1
                }
                IconButton { anchors.right: parent.right; anchors.rightMargin: Theme.small; anchors.verticalCenter: parent.verticalCenter; implicitWidth: Theme.tool; implicitHeight: Theme.tool; side: 13
                             glyph: "x"; name: "Take " + line.modelData.family + " off the list"; focusPolicy: Qt.NoFocus; onClicked: Qt.callLater(captionFonts.remove, line.index) }
            }
            Rectangle { // where it would come to stand
                parent: list.contentItem
                visible: list.target >= 0 && list.target !== list.currentIndex
                y: (list.target + (list.target > list.currentIndex ? 1 : 0)) * list.step - 1
                width: list.width
                height: 2
                color: Theme.accent
            }
        }
    }
    Row {
        width: parent.width
        spacing: Theme.wide
        DropDown { id: adding; width: 240; name: "Add a font"; words: order.visible ? ["Add a Font…"].concat(captionFonts.others) : []; onPicked: (index) => { if (index > 0) captionFonts.add(words[index]) } }
        Words { width: parent.width - 240 - Theme.wide; height: Theme.control; text: "Drag, or press Alt with ↑ or ↓, to change the order"; color: Theme.text3; font.pixelSize: Theme.noteSize }
    }
}
