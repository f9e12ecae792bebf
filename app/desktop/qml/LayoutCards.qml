import QtQuick
import QtQuick.Templates as T
import Murbo 1.0

// The layouts of a shot, each with the frame at the playhead in it; one is chosen.
Item {
    id: cards

    property string chosen
    property bool mixed: false
    readonly property real cardWidth: (width - Theme.margin - Theme.wide - 3 * Theme.gap) / 4
    readonly property real cardHeight: Math.min(cardWidth / inspectorPictures.shape, 150)
    signal picked(string layout)

    width: parent ? parent.width : 0
    implicitHeight: flow.height + Theme.gap
    Accessible.role: Accessible.Grouping
    Accessible.name: "Layout"

    Flow {
        id: flow
        x: Theme.margin
        width: parent.width - Theme.margin - Theme.wide + 1
        spacing: Theme.gap
        Repeater {
            model: inspectorPictures.layouts
            T.RadioButton {
                id: card
                required property string layout
                required property string name
                required property var picture
                readonly property bool up: layout === cards.chosen && !cards.mixed
                width: Math.floor(cards.cardWidth)
                height: cards.cardHeight + 18
                focusPolicy: Qt.TabFocus
                hoverEnabled: true
                checked: up
                text: name
                onClicked: cards.picked(layout)
                Keys.onReturnPressed: cards.picked(layout)
                Keys.onEnterPressed: cards.picked(layout)
                Accessible.role: Accessible.RadioButton
                Accessible.name: name
                Accessible.checked: up
                Accessible.onPressAction: cards.picked(layout)

                background: Rectangle {
                    height: cards.cardHeight
                    radius: Theme.small
                    color: Theme.canvas
                    PictureView { anchors.fill: parent; picture: card.picture }
                    Rectangle {
                        anchors.fill: parent
                        radius: Theme.small
                        color: "transparent"
                        border.width: card.up ? Theme.ring : 1
                        border.color: card.up ? Theme.accent : card.hovered ? Theme.text2 : Theme.line
                    }
                    Ring { around: card }
                }
                indicator: null
                contentItem: Item {
                    Words { y: cards.cardHeight; width: parent.width; height: 18; text: card.name; horizontalAlignment: Text.AlignHCenter
                            font.pixelSize: Theme.noteSize; color: card.up ? Theme.text : Theme.text2 }
                }
                Hint { of: card; words: card.name }
            }
        }
    }
}
