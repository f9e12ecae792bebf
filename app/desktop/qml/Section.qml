import QtQuick

// A part of a tab that folds under its name; whether it is folded is remembered.
Column {
    id: section

    property string name
    property string key: "folded." + name
    property bool open: inspectorPanel.isOpen(key)
    default property alias content: body.data

    width: parent ? parent.width : 0

    SectionHead {
        width: parent.width
        name: section.name
        open: section.open
        onToggled: {
            section.open = !section.open
            inspectorPanel.setOpen(section.key, section.open)
        }
    }
    Column {
        id: body
        width: parent.width
        visible: section.open
        bottomPadding: Theme.wide
        spacing: Theme.small
    }
}
