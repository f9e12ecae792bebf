import QtQuick

// A text of the settings, with a line of help.
Column {
    id: setting

    property string name
    property string text
    property string note
    property string glyph

    width: parent ? parent.width : 0
    spacing: 2
    Row {
        width: parent.width
        spacing: Theme.wide
        Words { text: setting.text; width: 130; height: Theme.control }
        Field { name: setting.text; glyph: setting.glyph; width: parent.width - 130 - Theme.wide; text: settingsSheet.text(setting.name)
                onEditingFinished: { settingsSheet.setText(setting.name, text); text = settingsSheet.text(setting.name) } }
    }
    Words { text: setting.note; color: Theme.text3; font.pixelSize: Theme.noteSize; leftPadding: 130 + Theme.wide; width: parent.width }
}
