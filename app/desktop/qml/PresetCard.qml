import QtQuick
import QtQuick.Templates as T
import Murbo 1.0

// A caption style to choose, drawn on the video's own words.
T.RadioButton {
    id: card

    property string name
    property var picture
    property bool chosen: false
    signal menuAsked(real px, real py)
    function openMenu() { const at = mapToItem(null, Theme.gap, height); menuAsked(at.x, at.y) }

    focusPolicy: Qt.TabFocus
    hoverEnabled: true
    text: name
    checked: chosen
    onClicked: checked = Qt.binding(() => chosen)
    Accessible.name: name
    Accessible.checked: chosen
    Accessible.onPressAction: card.clicked()
    Keys.onReturnPressed: card.clicked()
    Keys.onEnterPressed: card.clicked()

    indicator: null
    contentItem: Item {
        // Not of the button itself: that would be pressed by it.
        TapHandler { acceptedButtons: Qt.RightButton; onTapped: (point) => card.menuAsked(point.scenePosition.x, point.scenePosition.y) }
        Rectangle { anchors.fill: parent; anchors.margins: Theme.ring; anchors.bottomMargin: label.height; color: Theme.canvas }
        PictureView { picture: card.picture; anchors.fill: parent; anchors.margins: Theme.ring; anchors.bottomMargin: label.height }
        Words { id: label; anchors.bottom: parent.bottom; x: Theme.gap; width: parent.width - 2 * Theme.gap; height: Theme.tool; text: card.name; font.pixelSize: 12
                color: card.chosen ? Theme.text : Theme.text2; font.weight: card.chosen ? Font.DemiBold : Font.Normal }
    }
    background: Rectangle {
        radius: Theme.small
        color: card.hovered ? Theme.hover : Theme.raised
        border.width: card.chosen ? Theme.ring : 1
        border.color: card.chosen ? Theme.accent : Theme.line
        Ring { around: card }
    }
}
