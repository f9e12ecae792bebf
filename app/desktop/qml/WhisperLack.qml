import QtQuick

// What whisper lacks before it can write down what is said, with how to get it.
Words {
    width: parent ? parent.width : 0
    color: Theme.notice
    font.pixelSize: Theme.noteSize
    wrapMode: Text.WrapAnywhere
    elide: Text.ElideNone
}
