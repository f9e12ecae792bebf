import QtQuick

// A line to type in that shows what is kept while nobody types. Esc puts that back.
Field {
    id: field

    property string held
    property bool mixed: false
    property bool takesEscape: true
    signal dragged(string text) // it was typed in
    signal settled(string text) // typing is over
    signal cancelled()          // what was typed is taken back

    function finish() {
        if (text !== shown()) settled(text)
        text = Qt.binding(shown)
    }
    function shown() { return mixed ? "" : held }

    text: shown()
    placeholderText: mixed ? "–" : ""
    onTextEdited: dragged(text)
    onActiveFocusChanged: if (!activeFocus) finish()
    Keys.onReturnPressed: finish()
    Keys.onEnterPressed: finish()
    Keys.onEscapePressed: { cancelled(); text = Qt.binding(shown) }
}
