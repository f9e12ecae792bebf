import QtQuick

// A line of text in the interface's type.
Text {
    color: Theme.text
    font.family: Theme.family
    font.pixelSize: Theme.textSize
    elide: Text.ElideRight
    textFormat: Text.PlainText
    verticalAlignment: Text.AlignVCenter
}
