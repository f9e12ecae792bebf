import QtQuick

// The panel at the right: a row of tabs, and the one that is up.
FocusScope {
    id: inspector

    function takeFocus() { tabs.forceActiveFocus(Qt.TabFocusReason) }

    Accessible.role: Accessible.Pane
    Accessible.name: "Inspector"

    Rectangle { anchors.fill: parent; color: Theme.panel }
    FocusScope {
        id: tabs
        property bool takesArrows: true
        property bool visualFocus: activeFocus
        x: Theme.wide
        y: Theme.gap
        width: parent.width - 2 * Theme.wide
        height: Theme.control
        focus: true
        activeFocusOnTab: true
        Accessible.role: Accessible.PageTabList
        Accessible.name: "Tabs of the inspector"
        Accessible.focusable: true
        Keys.onLeftPressed: inspectorPanel.choose(inspectorPanel.tab - 1)
        Keys.onRightPressed: inspectorPanel.choose(inspectorPanel.tab + 1)

        Rectangle { anchors.fill: parent; radius: Theme.radius; color: Theme.canvas }
        Row {
            Repeater {
                model: inspectorPanel.tabs
                Rectangle {
                    id: one
                    required property int index
                    required property var modelData
                    readonly property bool up: index === inspectorPanel.tab
                    width: Math.min(label.implicitWidth + 2 * Theme.wide, tabs.width / inspectorPanel.tabs.length)
                    height: tabs.height
                    radius: Theme.radius
                    color: up ? Theme.pressed : touch.containsMouse ? Theme.hover : "transparent"
                    Accessible.role: Accessible.PageTab
                    Accessible.name: modelData.title
                    Accessible.selected: up
                    Accessible.onPressAction: inspectorPanel.choose(index)
                    Words { id: label; anchors.centerIn: parent; text: one.modelData.title; elide: Text.ElideNone
                            color: one.up ? Theme.text : Theme.text2 }
                    MouseArea { id: touch; anchors.fill: parent; hoverEnabled: true; onClicked: inspectorPanel.choose(one.index) }
                }
            }
        }
        Ring { around: tabs }
    }
    Loader {
        anchors.top: tabs.bottom
        anchors.topMargin: Theme.gap
        anchors.bottom: parent.bottom
        width: parent.width
        active: inspectorPanel.shown
        source: inspectorPanel.tabs[inspectorPanel.tab].file
    }
    Rectangle { anchors.left: parent.left; width: 1; height: parent.height; color: Theme.line }
}
