#include "app/editor/commands/PlayerCommands.h"

#include "app/editor/Timecode.h"
#include "app/editor/commands/OneLineJson.h"
#include "app/editor/commands/Row.h"

namespace murbo::PlayerCommands {
namespace {

enum class TimecodeForm { frames, clock, fine };
constexpr auto rawTexts(TimecodeForm) {
    return std::array<std::string_view, 3>{"frames", "clock", "fine"};
}

std::string timecode(TimecodeForm form, double time, std::optional<double> rate) {
    switch (form) {
        case TimecodeForm::frames:
            if (!rate) throw Problem("“rate” is missing: number.");
            return Timecode::frames(time, *rate);
        case TimecodeForm::clock:
            return Timecode::clock(time);
        case TimecodeForm::fine:
            return Timecode::fine(time);
    }
    return "";
}

/// The transport of one of the players.
void add(CommandList& list, const std::string& prefix, const std::string& of, Playback Editor::*player) {
    const auto loaded = [player](const Editor& editor) { return (editor.*player).isLoaded(); };
    list.push_back(
        row<Kind::Seconds>(prefix + "seek", "Go to a Time" + of, {"to"}, [player](Editor& editor, double to) {
            (editor.*player).seek(to);
        }).when(loaded));
    list.push_back(row<>(prefix + "playPause", "Play or Pause" + of, {}, [player](Editor& editor) {
                       (editor.*player).playPause();
                   }).when(loaded));
    list.push_back(
        row<Kind::Flag>(prefix + "shuttle", "Play Faster Each Time" + of, {"forward"},
                        [player](Editor& editor, bool forward) { (editor.*player).shuttle(forward); })
            .when(loaded));
    list.push_back(
        row<Kind::Seconds>(prefix + "step", "Step" + of, {"by"}, [player](Editor& editor, double by) {
            (editor.*player).step(by);
        }).when(loaded));
    list.push_back(
        row<Kind::Seconds>(prefix + "skim", "Skim" + of, {"to"}, [player](Editor& editor, double to) {
            (editor.*player).skim(to);
        }).when(loaded));
    list.push_back(row<>(prefix + "endScrub", "End Skimming" + of, {}, [player](Editor& editor) {
                       (editor.*player).endScrub();
                   }).when(loaded));
}

}

CommandList table() {
    CommandList list;
    add(list, "", "", &Editor::playback);
    add(list, "source.", " in the Source Player", &Editor::source);
    list.push_back(row<Kind::OneOf<TimecodeForm>, Kind::Number, Kind::Maybe<Kind::Number>>(
        "timecode", "A Time as It Is Shown", {"form", "t", "rate"},
        [](Editor&, TimecodeForm form, double time, std::optional<double> rate) {
            return OneLineJson::of(timecode(form, time, rate));
        }));
    return list;
}

}
