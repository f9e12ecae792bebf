import QtQuick
import QtQuick.Templates as T
import Murbo 1.0

// What is said in what is held, or in the open video, as one text. The caret is the playhead; typing corrects.
FocusScope {
    id: tab

    readonly property int gutterWidth: 62
    function takeFocus() { area.forceActiveFocus(Qt.TabFocusReason) }
    function grant(wish) {
        if (wish === "search") { search.forceActiveFocus(Qt.ShortcutFocusReason); search.selectAll() }
        if (wish === "note") note.start()
        if (wish === "copy") area.copy()
    }
    function openMenu() {
        const at = area.mapToItem(null, area.cursorRectangle.x, area.cursorRectangle.y + area.cursorRectangle.height)
        context.openPoint(at.x, at.y, project.contextMenu("transcript"))
    }
    Component.onCompleted: grant(transcript.takeWish())
    function keepInView(y, height) {
        if (y < page.contentY + Theme.margin) page.contentY = Math.max(y - page.height / 4, 0)
        else if (y + height > page.contentY + page.height - Theme.margin)
            page.contentY = Math.min(Math.max(y - page.height / 4, 0), Math.max(page.contentHeight - page.height, 0))
    }

    Item {
        id: head
        x: Theme.margin
        width: parent.width - 2 * Theme.margin
        height: Theme.control
        Words { text: transcript.title; color: Theme.text2; font.pixelSize: 12; height: parent.height; width: scopes.visible ? scopes.x - Theme.gap : parent.width }
        Choice {
            id: scopes
            visible: transcript.scopes.length > 1
            anchors.right: parent.right
            name: "Whose words"
            words: transcript.scopes
            chosen: transcript.scope
            onPicked: (index) => transcript.setScope(index)
        }
    }
    Field {
        id: search
        anchors.top: head.bottom
        anchors.topMargin: Theme.gap
        x: Theme.wide
        width: parent.width - 2 * Theme.wide
        glyph: "search"
        name: "Search the transcript"
        placeholderText: "Search"
        rightPadding: hits.implicitWidth + 2 * Theme.gap
        onTextEdited: transcript.find(text)
        Keys.onPressed: (event) => {
            if (event.key !== Qt.Key_Return && event.key !== Qt.Key_Enter) return
            transcript.findNext(event.modifiers & Qt.ShiftModifier)
            event.accepted = true
        }
        Keys.onDownPressed: area.forceActiveFocus()
        Words { id: hits; anchors.right: parent.right; anchors.rightMargin: Theme.gap; height: parent.height; text: transcript.hitWords; color: Theme.text3; font.pixelSize: Theme.noteSize }
    }

    TranscriptGutter {
        id: gutter
        anchors.fill: page
        page: transcript
        colours: Theme.transcript
        scroll: page.contentY
        textLeft: area.leftPadding
        textTop: area.topPadding
    }
    Flickable {
        id: page
        anchors.top: search.bottom
        anchors.topMargin: Theme.gap
        anchors.bottom: foot.top
        width: parent.width
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        contentWidth: width
        contentHeight: Math.max(area.implicitHeight, height)
        // A drag selects; the wheel and the bar scroll.
        interactive: false
        WheelHandler {
            acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
            onWheel: (wheel) => {
                const by = wheel.pixelDelta.y || wheel.angleDelta.y / 2
                page.contentY = Math.max(0, Math.min(page.contentY - by, page.contentHeight - page.height))
            }
        }

        T.TextArea {
            id: area
            width: page.width
            height: page.contentHeight
            leftPadding: tab.gutterWidth
            rightPadding: Theme.wide
            topPadding: Theme.small
            bottomPadding: Theme.margin
            implicitHeight: contentHeight + topPadding + bottomPadding
            focus: true
            color: Theme.text
            selectionColor: Theme.selection
            selectedTextColor: Theme.text
            font.family: Theme.family
            font.pixelSize: Theme.transcriptSize
            wrapMode: TextEdit.Wrap
            textFormat: TextEdit.PlainText
            selectByMouse: true
            persistentSelection: true
            // The project's own undo holds here; words that are selected are not what Delete is for.
            property bool projectUndo: true
            activeFocusOnTab: true
            property bool takesArrows: true
            property bool takesDelete: true
            Accessible.role: Accessible.EditableText
            Accessible.name: "Transcript"
            Accessible.multiLine: true
            onCursorPositionChanged: {
                transcript.caretMoved(cursorPosition, selectionStart, selectionEnd)
                tab.keepInView(cursorRectangle.y, cursorRectangle.height)
            }
            onSelectionStartChanged: transcript.caretMoved(cursorPosition, selectionStart, selectionEnd)
            onSelectionEndChanged: transcript.caretMoved(cursorPosition, selectionStart, selectionEnd)
            onReleased: transcript.pressed(cursorPosition, selectionStart, selectionEnd)
            onWidthChanged: gutter.update()
            onContentSizeChanged: gutter.update()
            Keys.onTabPressed: nextItemInFocusChain(true).forceActiveFocus(Qt.TabFocusReason)
            Keys.onBacktabPressed: nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason)
            TapHandler {
                acceptedButtons: Qt.RightButton
                onTapped: (point) => {
                    const place = area.positionAt(point.position.x, point.position.y)
                    area.forceActiveFocus(Qt.MouseFocusReason)
                    if (place < area.selectionStart || place > area.selectionEnd) area.cursorPosition = place
                    context.openPoint(point.scenePosition.x, point.scenePosition.y, project.contextMenu("transcript"))
                }
            }
            Component.onCompleted: transcript.attach(area)
            Component.onDestruction: transcript.attach(null)
        }
        MouseArea {
            property bool beside: true // lines are selected by keys too
            width: tab.gutterWidth - Theme.gap
            height: page.contentHeight
            cursorShape: Qt.ArrowCursor
            onPressed: (mouse) => {
                area.forceActiveFocus(Qt.MouseFocusReason)
                transcript.pressRow(gutter.rowAt(mouse.y - page.contentY), mouse.modifiers & Qt.ShiftModifier)
            }
            onPositionChanged: (mouse) => transcript.pressRow(gutter.rowAt(mouse.y - page.contentY), true)
        }
    }
    Connections {
        target: transcript
        function onWished() { tab.grant(transcript.takeWish()) }
        function onCaretWanted(position) { area.deselect(); area.cursorPosition = position }
        function onSelectionWanted(from, to) { area.select(from, to) }
        function onSpokenChanged() {
            const place = gutter.spokenPlace()
            if (place.height > 0 && (project.player.rate !== 0 || project.sourcePlayer.rate !== 0)) tab.keepInView(place.y, place.height)
        }
    }
    Rectangle {
        visible: page.contentHeight > page.height
        anchors.right: parent.right
        anchors.rightMargin: 2
        width: 6
        radius: 3
        y: page.y + page.contentY / page.contentHeight * page.height
        height: Math.max(page.height * page.height / page.contentHeight, 24)
        color: bar.containsMouse || bar.pressed ? Theme.disabled : Theme.pressed
        MouseArea {
            id: bar
            property bool beside: true
            property real from: 0
            anchors.fill: parent
            anchors.margins: -Theme.small
            hoverEnabled: true
            onPressed: (mouse) => from = mouse.y
            onPositionChanged: (mouse) => { if (pressed) page.contentY = Math.max(0, Math.min(page.contentY + (mouse.y - from) / page.height * page.contentHeight, page.contentHeight - page.height)) }
        }
    }

    Column {
        visible: transcript.emptyWords !== ""
        anchors.centerIn: page
        width: parent.width - 2 * Theme.margin
        spacing: Theme.wide
        Words { width: parent.width; text: transcript.emptyWords; Accessible.role: Accessible.StaticText; Accessible.name: text; color: Theme.text3; horizontalAlignment: Text.AlignHCenter }
        PushButton { visible: transcript.canTranscribe; anchors.horizontalCenter: parent.horizontalCenter; text: "Transcribe"; keys: "on this computer, free"; onClicked: transcript.transcribe() }
    }

    MenuList { id: context }
    Column {
        id: foot
        anchors.bottom: parent.bottom
        width: parent.width
        bottomPadding: Theme.wide
        topPadding: Theme.gap
        spacing: Theme.gap
        Rectangle {
            visible: transcript.offer.words !== ""
            x: Theme.wide
            width: parent.width - 2 * Theme.wide
            height: offer.height + 2 * Theme.gap
            radius: Theme.radius
            color: Theme.raised
            Column {
                id: offer
                x: Theme.gap
                y: Theme.gap
                width: parent.width - 2 * Theme.gap
                spacing: Theme.gap
                Words { width: parent.width; text: transcript.offer.words; wrapMode: Text.Wrap; elide: Text.ElideNone
                        Accessible.role: Accessible.AlertMessage; Accessible.name: text }
                Row {
                    spacing: Theme.gap
                    PushButton { text: "Correct Everywhere"; onClicked: { project.perform("transcript.correctEverywhere"); area.forceActiveFocus() } }
                    PushButton { text: "Leave"; onClicked: { transcript.offer.drop(); area.forceActiveFocus() } }
                }
            }
        }
        Field {
            id: note
            visible: false
            x: Theme.wide
            width: parent.width - 2 * Theme.wide
            name: "Note on the range"
            placeholderText: "What is seen here"
            function start() { visible = true; forceActiveFocus(Qt.TabFocusReason) }
            function close() { visible = false; text = ""; area.forceActiveFocus() }
            onActiveFocusChanged: if (!activeFocus && text === "") visible = false
            Keys.onReturnPressed: { transcript.addNote(text); close() }
            Keys.onEnterPressed: { transcript.addNote(text); close() }
        }
        Row {
            x: Theme.wide
            spacing: Theme.gap
            PushButton { text: transcript.addWords; glyph: "list-plus"; keys: "E"; enabled: transcript.canAdd; onClicked: transcript.addLines() }
            PushButton { text: "Add Note…"; enabled: transcript.canNote; onClicked: note.start() }
        }
        Rectangle { width: parent.width; height: 1; color: Theme.line; visible: false }
    }
}
