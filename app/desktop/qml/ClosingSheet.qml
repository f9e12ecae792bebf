import QtQuick

// Asks before what is under way is lost.
Sheet {
    id: sheet

    title: "Close " + project.name + "?"
    wide: Theme.narrowSheet
    mainWord: "Close Now"
    cancelWord: "Keep Open"
    safe: true
    onAccepted: closingQuestion.agree()

    Words { width: parent.width; text: closingQuestion.words; color: Theme.text2; wrapMode: Text.WordWrap; elide: Text.ElideNone; Accessible.role: Accessible.AlertMessage; Accessible.name: text }
}
