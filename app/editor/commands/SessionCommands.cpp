#include "app/editor/commands/SessionCommands.h"

#include "app/editor/commands/OneLineJson.h"
#include "app/editor/commands/Row.h"
#include "app/editor/commands/SessionFields.h"
#include "app/editor/commands/SessionState.h"
#include "app/editor/commands/TimelinePicks.h"

#include <QTimer>

namespace murbo::SessionCommands {
namespace {

constexpr double longestWait = 3600; ///< seconds

enum class Modifier { shift, command, option };
constexpr auto rawTexts(Modifier) {
    return std::array<std::string_view, 3>{"shift", "command", "option"};
}

void wait(Editor& editor, double seconds) {
    if (seconds < 0 || seconds > longestWait) throw Problem("A wait lasts from 0 to 3600 seconds.");
    QTimer::singleShot(std::chrono::milliseconds(std::llround(seconds * 1000)), &editor,
                       [hold = editor.busy()] {});
}

using Held = std::optional<Modifier>;

void hold(Editor&, Held first, Held second, Held third) {
    TimelinePicks::Modifiers keys;
    for (const auto& key : {first, second, third}) {
        keys.shift |= key == Modifier::shift;
        keys.command |= key == Modifier::command;
        keys.option |= key == Modifier::option;
    }
    TimelinePicks::held() = keys;
}

}

CommandList table() {
    using MaybeModifier = Kind::Maybe<Kind::OneOf<Modifier>>;
    return {
        row<>("undo", "Undo", {}, [](Editor& editor) { editor.undo(); }).when([](const Editor& editor) {
            return editor.unfinished() || editor.history().undoName();
        }),
        row<>("redo", "Redo", {}, [](Editor& editor) { editor.redo(); }).when([](const Editor& editor) {
            return editor.history().redoName().has_value();
        }),
        row<Kind::Maybe<Kind::Text>>(
            "beginDrag", "Begin a Drag", {"name"},
            [](Editor& editor, const std::optional<std::string>& name) { editor.beginDrag(name); }),
        row<Kind::Text>("endDragSoon", "End a Drag Once It Is Still", {"name"},
                        [](Editor& editor, const std::string& name) { editor.endDragSoon(name); }),
        row<>("closeDrag", "End a Drag Now", {}, [](Editor& editor) { editor.closeDrag(); }),
        row<>("unfinished", "The Open Drag", {},
              [](Editor& editor) { return OneLineJson::of(editor.unfinished()); }),
        row<>("writeHistory", "Write the History Now", {}, [](Editor& editor) { editor.writeHistory(); }),
        SessionFields::command(),
        row<>("state", "The State of the Session", {},
              [](Editor& editor) { return SessionState::json(editor); }),
        row<MaybeModifier, MaybeModifier, MaybeModifier>("modifiers", "Hold Keys",
                                                         {"first", "second", "third"}, hold),
        row<Kind::Seconds>("wait", "Wait", {"seconds"}, wait),
    };
}

}
