#include "app/editor/commands/KeyCommands.h"

#include "app/editor/commands/CutCommands.h"
#include "app/editor/commands/FootageCommands.h"
#include "app/editor/commands/MarkCommands.h"
#include "app/editor/commands/OneLineJson.h"
#include "app/editor/commands/RemoveCommands.h"
#include "app/editor/commands/Row.h"
#include "app/editor/commands/ShotCommands.h"
#include "app/editor/commands/TimelinePicks.h"

namespace murbo::KeyCommands {
namespace {

Playback& focused(Editor& editor) {
    return editor.focus() == Viewer::video ? editor.playback : editor.source;
}

/// Removes what is picked on the timeline, or rejects the clips of the browser: what the inspector follows.
void removeOrReject(Editor& editor) {
    const auto clips = FootageCommands::clipsActedOn(editor);
    const bool picks = !TimelinePicks::all(editor).empty();
    const bool onTimeline = editor.inspecting() == Inspecting::timeline || clips.empty();
    if (picks && onTimeline)
        RemoveCommands::removePicked(editor);
    else
        FootageCommands::rate(editor, clips, -1);
}

void rateActedOn(Editor& editor, std::optional<std::int64_t> value) {
    FootageCommands::rate(editor, FootageCommands::clipsActedOn(editor), value);
}

std::string keyName(const std::string& typed) {
    const auto name = Keys::name(typed);
    if (!name) throw Problem("“" + typed + "” is no key that a command can have.");
    return *name;
}

std::optional<std::string> press(Editor& editor, const std::string& typed) {
    const auto name = Keys::name(typed);
    const auto command = name ? Keys::standard().command(*name) : std::nullopt;
    if (!command) return {};
    perform(editor, *command);
    return OneLineJson::of(*command);
}

}

void perform(Editor& editor, Command command) {
    switch (command) {
        case Command::play:
            return focused(editor).playPause();
        case Command::backward:
            return focused(editor).shuttle(false);
        case Command::stop:
            return focused(editor).pause();
        case Command::forward:
            return focused(editor).shuttle(true);
        case Command::markStart:
            return FootageCommands::markStart(editor);
        case Command::markEnd:
            return FootageCommands::markEnd(editor);
        case Command::markClip:
            return FootageCommands::markClip(editor);
        case Command::addToEnd:
            return CutCommands::addToEnd(editor);
        case Command::insert:
            return CutCommands::insertAtPlayhead(editor);
        case Command::select:
            return editor.setTool(EditingTool::select);
        case Command::trim:
            return editor.setTool(EditingTool::trim);
        case Command::blade:
            return editor.setTool(EditingTool::blade);
        case Command::hand:
            return editor.setTool(EditingTool::hand);
        case Command::skimming:
            return editor.setSkimming(!editor.skimming());
        case Command::snapping:
            return editor.setSnapping(!editor.snapping());
        case Command::remove:
            return removeOrReject(editor);
        case Command::favourite:
            return rateActedOn(editor, 1);
        case Command::clearRating:
            return rateActedOn(editor, std::nullopt);
        case Command::cutSplit:
            return ShotCommands::cut(editor, Shot::Layout::split);
        case Command::cutContent:
            return ShotCommands::cut(editor, Shot::Layout::content);
        case Command::cutFace:
            return ShotCommands::cut(editor, Shot::Layout::face);
        case Command::punch:
            return ShotCommands::punch(editor);
        case Command::clipMark:
            return MarkCommands::dropClipMark(editor);
        case Command::bookmark:
            return MarkCommands::dropBookmark(editor);
    }
}

CommandList table() {
    using OneCommand = Kind::OneOf<Command>;
    return {
        row<Kind::Text>("key", "Press a Key", {"key"}, press),
        row<OneCommand, Kind::Text>("bind", "Give a Command a Key", {"command", "key"},
                                    [](Editor&, Command command, const std::string& key) {
                                        return OneLineJson::of(Keys::standard().bind(command, keyName(key)));
                                    }),
        row<OneCommand>(
            "keyOf", "The Key of a Command", {"command"},
            [](Editor&, Command command) { return OneLineJson::of(Keys::standard().key(command)); }),
        row<>("useStandardKeys", "Use Standard Keys", {}, [](Editor&) { Keys::standard().useStandard(); }),
    };
}

}
