import QtQuick

// A number of the settings, with a line of help.
Column {
    id: setting

    property string name
    property string text
    property string note
    property string unit
    property int digits: 0
    property alias from: slide.from
    property alias to: slide.to

    Row {
        spacing: Theme.wide
        Words { text: setting.text; width: 130; height: Theme.tool }
        Slide { id: slide; name: setting.text; width: 300; value: settingsSheet.number(setting.name); onMoved: settingsSheet.setNumber(setting.name, Number(value.toFixed(setting.digits))) }
        Words { text: slide.value.toFixed(setting.digits) + setting.unit; color: Theme.text2; height: Theme.tool }
    }
    Words { text: setting.note; color: Theme.text3; font.pixelSize: Theme.noteSize; leftPadding: 130 + Theme.wide }
}
