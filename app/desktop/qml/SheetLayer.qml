import QtQuick

// What lies over the window, one at a time.
Item {
    id: layer

    property Item picture
    function drop(urls) {
        take(urls.map(url => desktop.pathOf(url)).filter(path => path))
    }
    function take(paths) {
        const projects = paths.filter(path => path.endsWith(".mbproj"))
        projects.forEach(path => desktop.openPath(path))
        planner.takeFootage(paths.filter(path => !path.endsWith(".mbproj")))
    }

    visible: project.sheet !== ""
    Rectangle { anchors.fill: parent; color: Theme.veil }
    MouseArea { property bool beside: true; anchors.fill: parent; hoverEnabled: true; onWheel: (wheel) => wheel.accepted = true }
    Loader {
        id: loader
        anchors.fill: parent
        focus: true
        source: ({ "export": "ExportSheet.qml", "newVideo": "NewVideoSheet.qml", "addFiles": "AddFilesSheet.qml", "addStream": "AddStreamSheet.qml", "history": "HistorySheet.qml",
                   "saveAs": "SaveAsSheet.qml", "duplicate": "SaveAsSheet.qml", "closing": "ClosingSheet.qml", "findMissing": "FindMissingSheet.qml",
                   "renameVideo": "RenameSheet.qml", "renameClip": "RenameClipSheet.qml", "renamePreset": "PresetSheet.qml", "bringIn": "BringInSheet.qml", "palette": "Palette.qml", "settings": "SettingsSheet.qml", "keys": "SettingsSheet.qml", "captionFonts": "SettingsSheet.qml" })[project.sheet] || ""
        onLoaded: { item.forceActiveFocus(); if ("picture" in item) item.picture = layer.picture }
    }
}
