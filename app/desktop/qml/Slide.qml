import QtQuick
import QtQuick.Templates as T

// A slider.
T.Slider {
    id: slide

    property string name
    property bool takesArrows: true

    implicitWidth: 100
    implicitHeight: Theme.tool
    focusPolicy: Qt.TabFocus
    Accessible.role: Accessible.Slider
    Accessible.name: name

    background: Rectangle {
        y: (slide.height - height) / 2
        width: slide.width
        height: 4
        radius: 2
        color: Theme.pressed
        Rectangle { width: slide.visualPosition * parent.width; height: 4; radius: 2; color: Theme.accent }
    }
    handle: Rectangle {
        x: slide.visualPosition * (slide.width - width)
        y: (slide.height - height) / 2
        width: 12
        height: 12
        radius: 6
        color: slide.pressed ? Theme.text : Theme.text2
        Ring { around: slide }
    }
}
