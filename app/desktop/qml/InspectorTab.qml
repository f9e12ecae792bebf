import QtQuick

// What is picked, and what can be set about it.
Item {
    Section { name: "Video"
        Labelled { name: "Title"; Words { height: Theme.control; text: project.videoTitle || "No video open"; width: parent.width } }
    }
}
