import QtQuick
import Murbo 1.0

// Asks for a colour out of a viewer's picture. The keys come back to it, also where none is taken.
IconButton {
    id: button

    property string of
    signal picked(string colour)

    width: Theme.tool
    glyph: "pipette"
    side: 16
    name: "Pick " + of.toLowerCase() + " from the picture"
    onClicked: eyedropper.ask(button)
    Connections {
        target: eyedropper
        function onTaken(asker, colour) { if (asker === button) button.picked(colour) }
        function onLetGo(asker) { if (asker === button) button.forceActiveFocus(Qt.OtherFocusReason) }
    }
}
