#include "app/desktop/KeyRouter.h"

#include "app/desktop/Actions.h"
#include "app/desktop/OpenProject.h"
#include "app/desktop/timeline/TimelineView.h"
#include "app/editor/Keys.h"
#include "app/editor/commands/CutCommands.h"
#include "app/editor/commands/KeyCommands.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QQuickItem>
#include <QQuickWindow>

namespace murbo {
namespace {

constexpr quint32 evdevOffset = 8; // scan codes of X11 and Wayland lie that much above the kernel's
constexpr double second = 1;
constexpr quint32 tap = 300; ///< ms; their count begins anew after 49 days on some systems

/// By the typed key, else by the one that a US keyboard has there: Ctrl+B is that on every layout.
const Action* actionOf(const QKeyEvent& event) {
    auto pressed = event.keyCombination();
    if (!event.text().isEmpty() && event.text()[0].isPunct())
        pressed = QKeyCombination(event.modifiers() & ~Qt::ShiftModifier, pressed.key());
    if (const auto* action = Actions::byKeys(pressed)) return action;
    const auto physical = KeyRouter::onUsKeyboard(event.nativeScanCode());
    if (physical.isEmpty() || !(event.modifiers() & (Qt::ControlModifier | Qt::AltModifier))) return nullptr;
    return Actions::byKeys(
        QKeyCombination(event.modifiers(), static_cast<Qt::Key>(physical.toUpper()[0].unicode())));
}

/// Whether Ctrl+Z is for the project although somebody types: where the text has nothing to take back.
bool isProjects(const Action& action, const QQuickItem& text) {
    if (action.id != "undo" && action.id != "redo") return false;
    const auto able = text.property(action.id == "undo" ? "canUndo" : "canRedo");
    return text.property("projectUndo").toBool() || (able.isValid() && !able.toBool());
}

}

KeyRouter::KeyRouter(QQuickWindow& watched, OpenProject& open)
    : QObject(&watched), window(watched), project(open) {
    window.installEventFilter(this);
}

bool KeyRouter::typing() const {
    const auto* item = window.activeFocusItem();
    return item && item->flags().testFlag(QQuickItem::ItemAcceptsInputMethod);
}

bool KeyRouter::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::KeyRelease) {
        const auto& released = static_cast<const QKeyEvent&>(*event);
        const auto name = Keys::name(typed(released).toStdString());
        if (released.isAutoRepeat()) return false;
        if (name == Keys::standard().key(Command::stop)) stopHeld = false;
        if (const auto command = name ? Keys::standard().command(*name) : std::nullopt)
            letToolGo(*command, released.timestamp());
        return false;
    }
    if (event->type() != QEvent::KeyPress) return false;
    return press(static_cast<const QKeyEvent&>(*event));
}

/// A tool's key that is held longer than a tap lends the tool for as long as it is held.
void KeyRouter::takeTool(Command command, quint64 when) {
    const bool isTool = command == Command::select || command == Command::trim || command == Command::blade ||
                        command == Command::hand;
    if (!isTool || toolHeld) return;
    toolHeld = command;
    toolBefore = project.editor().tool();
    toolSince = when;
}

void KeyRouter::letToolGo(Command command, quint64 when) {
    if (toolHeld != command) return;
    toolHeld.reset();
    if (static_cast<quint32>(when - toolSince) >= tap) project.editor().setTool(toolBefore);
}

bool KeyRouter::press(const QKeyEvent& event) {
    const bool held = event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    if (project.takesAllKeys()) return event.key() == Qt::Key_Escape && project.escape();
    const auto* action = actionOf(event);
    const auto* focus = window.activeFocusItem();
    const bool ofProject = action && focus && isProjects(*action, *focus);
    const bool writes = !held && (event.key() < Qt::Key_F1 || event.key() > Qt::Key_F35);
    const bool toText = typing() && (writes || (action && action->textToo && !ofProject));
    if (event.key() == Qt::Key_Escape) return !takesEscape() && project.escape();
    // The menu of what has the focus; nothing that is typed.
    const bool menu = event.key() == Qt::Key_Menu || (action && action->id == "contextMenu");
    if (menu) return project.perform("contextMenu");
    if (toText) return false;
    // With Ctrl arrows size what stands in the framing, where that has the keys.
    if (action && action->id.starts_with("walk.") && focus && focus->property("sizedByArrows").toBool())
        return false;
    if (action) return project.perform(QString::fromStdString(action->id));
    return !held && pressBare(event);
}

/// Esc takes back what is being typed, where a field has it to take back.
bool KeyRouter::takesEscape() const {
    const auto* item = window.activeFocusItem();
    return item && item->property("takesEscape").toBool();
}

/// Arrows are for whatever list or slider has the focus, or a row of it; in the viewers and the timeline they
/// walk the time. A list that goes up and down alone leaves the others to the player.
bool KeyRouter::onControl(int key) const {
    const auto* item = window.activeFocusItem();
    while (item && !item->property("takesArrows").toBool()) item = item->parentItem();
    const bool upOrDown = key == Qt::Key_Up || key == Qt::Key_Down;
    return item && (upOrDown || !item->property("upAndDown").toBool());
}

/// On the timeline Enter goes to what is picked, unless that is a caption. While a screen reader runs its
/// arrows go from block to block, as in every list.
bool KeyRouter::walkBlocks(const QKeyEvent& event) {
    if (!qobject_cast<TimelineView*>(window.activeFocusItem())) return false;
    static const std::map<int, const char*> ways{
        {Qt::Key_Left, "walk.previous"}, {Qt::Key_Right, "walk.next"}, {Qt::Key_Up, "walk.above"},
        {Qt::Key_Down, "walk.below"},    {Qt::Key_Home, "walk.first"}, {Qt::Key_End, "walk.last"}};
    if (event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter) {
        const auto& pick = project.editor().picked();
        const bool edits = pick && pick->kind == Pick::Kind::caption; // Enter is for its words
        return !edits && project.perform("goToPick");
    }
    const auto way = ways.find(event.key());
    return QAccessible::isActive() && way != ways.end() && project.perform(way->second);
}

bool KeyRouter::pressBare(const QKeyEvent& event) {
    auto& editor = project.editor();
    auto& player = editor.focus() == Viewer::video ? editor.playback : editor.source;
    const bool shift = event.modifiers() & Qt::ShiftModifier;
    const double step = shift ? second : 1 / player.frameRate();
    if (walkBlocks(event)) return true;
    switch (event.key()) {
        case Qt::Key_Left:
        case Qt::Key_Right:
            if (onControl(event.key())) return false;
            player.step(event.key() == Qt::Key_Left ? -step : step);
            return true;
        case Qt::Key_Up:
        case Qt::Key_Down:
            if (onControl(event.key())) return false;
            CutCommands::jumpToEdit(editor, event.key() == Qt::Key_Down);
            return true;
        case Qt::Key_Home:
        case Qt::Key_End:
            if (onControl(event.key())) return false;
            player.seek(event.key() == Qt::Key_Home ? player.spanStart() : player.spanEnd());
            return true;
        default:
            break;
    }
    const auto name = Keys::name(typed(event).toStdString());
    const auto command = name ? Keys::standard().command(*name) : std::nullopt;
    if (!command) return false;
    // Where words are selected, Delete is not for the timeline's picks.
    const auto* focus = window.activeFocusItem();
    if (command == Command::remove && focus && focus->property("takesDelete").toBool()) return false;
    if (command == Command::stop) stopHeld = true;
    if (stopHeld && (command == Command::backward || command == Command::forward))
        player.step(command == Command::backward ? -1 / player.frameRate() : 1 / player.frameRate());
    else if (!event.isAutoRepeat() || command == Command::remove) {
        takeTool(*command, event.timestamp());
        KeyCommands::perform(editor, *command);
    }
    return true;
}

QString KeyRouter::typed(const QKeyEvent& event) {
    if (event.key() == Qt::Key_Space) return " ";
    if (event.key() == Qt::Key_Backspace || event.key() == Qt::Key_Delete) return "delete";
    auto character = event.text().toLower();
    const auto name = Keys::name(character.toStdString());
    if (name && Keys::standard().command(*name)) return character;
    const auto physical = onUsKeyboard(event.nativeScanCode());
    return physical.isEmpty() ? character : physical;
}

QString KeyRouter::onUsKeyboard(quint32 scanCode) {
    // Rows of a keyboard by the kernel's codes: digits from 2, then three rows of letters.
    struct Row {
        quint32 first;
        const char* keys;
    };
    static constexpr Row rows[] = {{2, "1234567890"}, {16, "qwertyuiop"}, {30, "asdfghjkl"}, {44, "zxcvbnm"}};
    if (scanCode < evdevOffset) return "";
    const auto code = scanCode - evdevOffset;
    for (const auto& [first, keys] : rows)
        if (code >= first && code < first + QByteArrayView(keys).size())
            return QString(QLatin1Char(keys[code - first]));
    return "";
}

}
