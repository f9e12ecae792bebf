import QtQuick

// Footage to bring in.
Sheet {
    id: sheet

    property var files: []
    function toggle(path) { files = files.indexOf(path) < 0 ? files.concat([path]) : files.filter(one => one !== path) }

    title: "Add Footage"
    mainWord: files.length > 1 ? "Add " + files.length + " Files" : "Add"
    mainEnabled: files.length > 0
    onAccepted: { project.sheet = ""; project.addFiles(files, transcribe.checked) }

    Column {
        width: parent.width
        spacing: Theme.wide
        FilePicker { width: parent.width; chosen: sheet.files; onPicked: (path) => sheet.toggle(path) }
        Words { width: parent.width; color: Theme.text2; text: sheet.files.length === 0 ? "Choose movie files, or drop files and folders on the window" : sheet.files.map(path => path.split("/").pop()).join(", ") }
        Tick { id: transcribe; text: "Transcribe"; note: "Writes down what is said, on this computer"; checked: project.transcribeOnAdd() }
    }
}
