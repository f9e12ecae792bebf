import QtQuick

// A switch of the settings.
Tick {
    property string name

    checked: settingsSheet.isOn(name)
    onToggled: settingsSheet.setOn(name, checked)
}
