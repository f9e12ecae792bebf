pragma Singleton
import QtQuick

// Every colour, size and duration of the desktop.
QtObject {
    // grounds, from the back to the front
    readonly property color canvas: "#0D0E10"
    readonly property color panel: "#17181B"
    readonly property color raised: "#202226"
    readonly property color hover: "#2A2D33"
    readonly property color pressed: "#363A42"
    readonly property color line: "#2A2D33"
    readonly property color selection: "#2F5B87"
    readonly property color veil: "#8C000000"

    // what stands on them
    readonly property color text: "#ECEDEF"
    readonly property color text2: "#B7BBC3"
    readonly property color text3: "#9398A2"
    readonly property color disabled: "#676C76"
    readonly property color fieldEdge: "#747A85"
    readonly property color accent: "#63AEFF"
    readonly property color accentText: "#07131F"
    readonly property color picked: "#FFD23F"
    readonly property color playhead: "#FF5F57"
    readonly property color notice: "#F79F57"
    readonly property color good: "#6CCB8E"
    readonly property color bad: "#FF8A80"
    readonly property color badCard: "#4A1F1D"

    // the timeline's blocks: fill, the edge along the top, the words on it
    readonly property var timeline: ({
        "canvas": "#0D0E10", "row": "#131417", "ruler": "#17181B", "tick": "#747A85", "time": "#B7BBC3",
        "wave": "#7FC8A9", "quiet": "#990D0E10", "picked": "#FFD23F", "notice": "#F79F57",
        "split.fill": "#37507A", "split.edge": "#6E93D6", "split.label": "#ECEDEF",
        "content.fill": "#2E6350", "content.edge": "#5DB597", "content.label": "#ECEDEF",
        "face.fill": "#7A4560", "face.edge": "#D184AB", "face.label": "#ECEDEF",
        "layer.fill": "#5B5230", "layer.edge": "#B3A45F", "layer.label": "#ECEDEF",
        "cut.fill": "#2A323B", "cut.edge": "#7E8A97", "cut.label": "#ECEDEF",
        "caption.fill": "#44474F", "caption.edge": "#A3A8B4", "caption.label": "#ECEDEF",
        "bigCaption.fill": "#5F636D", "bigCaption.edge": "#FFFFFF", "bigCaption.label": "#ECEDEF",
        "hiddenCaption.fill": "#1B1C1F", "hiddenCaption.edge": "#676C76", "hiddenCaption.label": "#9398A2",
        "overlay.fill": "#56427C", "overlay.edge": "#A48AE0", "overlay.label": "#ECEDEF",
        "sound.fill": "#1E5F5B", "sound.edge": "#4FB7AF", "sound.label": "#ECEDEF",
        "music.fill": "#2B5487", "music.edge": "#6FA6E8", "music.label": "#ECEDEF",
        "muted.fill": "#1C2B3D", "muted.edge": "#4A6687", "muted.label": "#ECEDEF"
    })

    // the transcript: what lies beneath and beside its words
    readonly property var transcript: ({
        "tag": "#9398A2", "rule": "#363A42", "used": "#6E93D6", "marked": "#332C17", "current": "#202226",
        "found": "#1A2C44", "spoken": "#8C2F2A"
    })

    // type
    readonly property string family: "Noto Sans"
    readonly property int noteSize: 11
    readonly property int textSize: 13
    readonly property int transcriptSize: 14
    readonly property int headingSize: 15
    readonly property int sheetSize: 17
    readonly property int startSize: 28

    // sizes
    readonly property int bar: 40
    readonly property int control: 28
    readonly property int tool: 24
    readonly property int row: 26
    readonly property int item: 66
    readonly property int small: 4
    readonly property int gap: 8
    readonly property int wide: 12
    readonly property int margin: 16
    readonly property int radius: 6
    readonly property int sheetRadius: 10
    readonly property int ring: 2
    readonly property int icon: 18
    readonly property int sheetWidth: 780
    readonly property int narrowSheet: 460
    readonly property int headers: 136
    readonly property int label: 96
    readonly property int numberBox: 66

    // the colours that a board offers
    readonly property var colourBoard: [
        "FFFFFF", "E0E0E0", "BDBDBD", "8C8C8C", "5A5A5A", "2E2E2E", "141414", "000000",
        "FFF3B0", "FFE066", "FFD23F", "FFB300", "FF8F3F", "FF6B35", "E6452E", "B3261E",
        "D7F7C2", "A5E887", "5CCB5F", "2E9E4F", "4FD1C5", "1FA3A3", "0E7490", "155E75",
        "C9E4FF", "7CC4FF", "3B9DFF", "1D5FD1", "C9B8FF", "9B6BFF", "F28BD1", "E0368C"
    ]

    // milliseconds
    readonly property int fold: 120
    readonly property int sheetIn: 160
    readonly property int sheetOut: 100
    readonly property int toastIn: 140
    readonly property int toastStay: 4000
    readonly property int toastStayLong: 7000
}
