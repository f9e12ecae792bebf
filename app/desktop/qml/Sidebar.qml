import QtQuick

// Sources and collections; as a rail only their icons.
Rectangle {
    id: sidebar

    property bool rail: false
    // A rail shows whole icons: all of them where there is room, else with a button for the others.
    readonly property int room: height - 2 * list.edge
    readonly property int step: Math.max(Theme.control, Math.min(34, Math.floor(room / Math.max(list.count, 1))))
    readonly property bool more: rail && list.count * step > room
    function takeFocus() { list.forceActiveFocus(Qt.TabFocusReason) }

    color: Theme.panel

    ListView {
        id: list
        readonly property int edge: sidebar.rail ? 6 : Theme.small
        x: edge
        y: edge
        width: parent.width - 2 * edge
        height: sidebar.more ? Math.floor((sidebar.room - down.height) / sidebar.step) * sidebar.step : sidebar.room
        clip: true
        snapMode: sidebar.rail ? ListView.SnapToItem : ListView.NoSnap
        model: project.sidebar
        boundsBehavior: Flickable.StopAtBounds
        activeFocusOnTab: true
        keyNavigationEnabled: true
        currentIndex: project.sidebar.pickedRow
        property bool takesArrows: true
        property bool upAndDown: true
        Accessible.role: Accessible.List
        Accessible.name: "Project"
        Keys.onUpPressed: project.sidebar.pick(Math.max(currentIndex - 1, 0))
        Keys.onDownPressed: project.sidebar.pick(Math.min(currentIndex + 1, count - 1))

        section.property: sidebar.rail ? "" : "section"
        section.delegate: Words {
            required property string section
            width: list.width
            height: 30
            leftPadding: Theme.gap
            text: section
            color: Theme.text3
            font.pixelSize: Theme.noteSize
            font.weight: Font.DemiBold
        }
        delegate: Rectangle {
            id: line
            required property int index
            required property string title
            required property string icon
            required property int count
            required property bool missing
            required property bool picked
            width: list.width
            height: sidebar.rail ? sidebar.step : Theme.row
            radius: Theme.radius
            color: picked ? Theme.pressed : touch.containsMouse ? Theme.hover : "transparent"
            border.width: picked && list.activeFocus ? Theme.ring : 0
            border.color: Theme.accent
            Accessible.role: Accessible.ListItem
            Accessible.name: title + (count > 0 ? ", " + count : "") + (missing ? ", missing" : "")
            Accessible.selected: picked

            Icon {
                x: sidebar.rail ? (line.width - width) / 2 : Theme.gap
                anchors.verticalCenter: parent.verticalCenter
                name: line.icon
                side: 16
                tint: line.missing ? Theme.notice : line.picked ? Theme.text : Theme.text2
            }
            Words { visible: !sidebar.rail; x: 32; height: parent.height; width: parent.width - 32 - number.width - 2 * Theme.gap; text: line.title; color: line.picked ? Theme.text : Theme.text2 }
            Words { id: number; visible: !sidebar.rail; anchors.right: parent.right; anchors.rightMargin: Theme.gap; height: parent.height; text: line.count < 0 ? "" : line.count; color: Theme.text3; font.pixelSize: Theme.noteSize }
            MouseArea { id: touch; property bool hovered: sidebar.rail && containsMouse; anchors.fill: parent; hoverEnabled: true; onClicked: project.sidebar.pick(line.index) }
            Hint { of: touch; words: line.title }
        }
    }
    ScrollMark { of: list; visible: !sidebar.rail && list.contentHeight > list.height + 1 }
    IconButton {
        id: down
        visible: sidebar.more
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 2
        anchors.horizontalCenter: parent.horizontalCenter
        implicitHeight: Theme.tool
        glyph: "chevron-down"
        rotation: list.atYEnd ? 180 : 0
        name: list.atYEnd ? "Show the first ones" : "Show the other ones"
        side: 16
        onClicked: list.positionViewAtIndex(list.atYEnd ? 0 : list.count - 1, ListView.Contain)
    }
    Rectangle { anchors.right: parent.right; width: 1; height: parent.height; color: Theme.line }
}
