import QtQuick
import QtQuick.Templates as T

// A colour: a well that opens a few to choose from, and its six digits to type. `none` lets it be off.
Row {
    id: field

    property string name
    property string value
    property bool none: false
    signal picked(string value)

    readonly property var shades: (none ? [""] : []).concat(["FFFFFF", "111111", "000000", "FFD60A", "FF9F0A", "FF5FA2", "E0245E", "30D158", "64D2FF", "0A84FF", "BF5AF2"])

    spacing: Theme.gap

    T.AbstractButton {
        id: well
        width: Theme.control
        height: Theme.control
        focusPolicy: Qt.TabFocus
        hoverEnabled: true
        text: field.name
        onClicked: choices.open()
        Accessible.role: Accessible.Button
        Accessible.name: field.name + ", " + (field.value || "none")
        Accessible.onPressAction: choices.open()
        Keys.onReturnPressed: choices.open()
        background: Rectangle {
            radius: Theme.radius
            color: field.value ? "#" + field.value.slice(0, 6) : "transparent"
            border.color: well.hovered ? Theme.text2 : Theme.fieldEdge
            Icon { visible: !field.value; anchors.centerIn: parent; name: "circle-slash"; side: 14; tint: Theme.text3 }
            Ring { around: well }
        }
        T.Popup {
            id: choices
            y: well.height + 2
            padding: Theme.gap
            margins: Theme.gap
            focus: true
            onAboutToShow: project.menuOpen = true
            onClosed: project.menuOpen = false
            background: Rectangle { color: Theme.raised; radius: Theme.radius; border.color: Theme.pressed }
            contentItem: Grid {
                columns: 6
                spacing: Theme.small
                Repeater {
                    model: field.shades
                    T.AbstractButton {
                        id: shade
                        required property string modelData
                        required property int index
                        width: Theme.tool
                        height: Theme.tool
                        focus: index === 0
                        focusPolicy: Qt.TabFocus
                        Accessible.role: Accessible.Button
                        Accessible.name: modelData || "None"
                        Accessible.onPressAction: clicked()
                        Keys.onReturnPressed: clicked()
                        onClicked: { choices.close(); field.picked(modelData) }
                        background: Rectangle {
                            radius: Theme.small
                            color: shade.modelData ? "#" + shade.modelData : "transparent"
                            border.color: Theme.fieldEdge
                            Icon { visible: !shade.modelData; anchors.centerIn: parent; name: "circle-slash"; side: 14; tint: Theme.text2 }
                            Ring { around: shade }
                        }
                    }
                }
            }
        }
    }
    PipetteButton { id: dropper; of: field.name; onPicked: (colour) => field.picked(colour) }
    Field {
        id: digits
        width: 92
        name: field.name + ", six digits"
        text: field.value
        placeholderText: field.none ? "none" : ""
        maximumLength: 9
        function take() {
            const typed = text.trim().replace(/^#/, "").toUpperCase()
            if (typed !== field.value && (/^[0-9A-F]{6}([0-9A-F]{2})?$/.test(typed) || (typed === "" && field.none))) field.picked(typed)
            text = Qt.binding(() => field.value)
        }
        onActiveFocusChanged: if (!activeFocus) take()
        Keys.onReturnPressed: take()
        Keys.onEnterPressed: take()
    }
}
