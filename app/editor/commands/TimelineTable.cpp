#include "app/editor/commands/BladeCommands.h"
#include "app/editor/commands/OneLineJson.h"
#include "app/editor/commands/PickJson.h"
#include "app/editor/commands/RemoveCommands.h"
#include "app/editor/commands/Row.h"
#include "app/editor/commands/TimelinePicks.h"
#include "core/render/plan/Snapping.h"

namespace murbo::TimelinePicks {
namespace {

using MaybeId = std::optional<UUID>;
using MaybeLine = std::optional<Named::FoundLine>;

MaybeId idOf(const MaybeLine& line) {
    return line ? MaybeId(line->line.id) : std::nullopt;
}

void ask(Editor& editor) {
    editor.setAsking(inWords(editor) + ". ");
    editor.setInspectorTab(InspectorTab::ask);
}

void copy(Editor& editor) {
    emit editor.copied(QString::fromStdString(inWords(editor) + ". "));
    editor.say("Copied: say what to do with them, in an AI app with Murbo connected");
}

double shifted(Editor& editor, double first, double second, double by, double scale, const MaybeId& except,
               const MaybeLine& caption) {
    return Snapping::shift(first, second, by, [&](double time) {
        return snapped(editor, time, scale, except, idOf(caption), held());
    });
}

}

CommandList table() {
    const auto hasVideo = [](const Editor& editor) { return editor.video() != nullptr; };
    const auto hasPicks = [](const Editor& editor) { return !all(editor).empty(); };
    using Kind::Maybe;
    return {
        row<>("timelinePicks", "What Is Picked", {},
              [](Editor& editor) { return PickJson::of(all(editor)); }),
        row<Kind::TimelinePick>(
            "isPicked", "Whether a Block Is Picked", {"pick"},
            [](Editor& editor, const Pick& pick) { return OneLineJson::of(isPicked(editor, pick)); }),
        row<Kind::TimelinePick>(
            "exists", "Whether a Block Is There", {"pick"},
            [](Editor& editor, const Pick& pick) { return OneLineJson::of(editor.exists(pick)); }),
        row<Kind::TimelinePick>("clickOnTimeline", "Click on a Block", {"pick"},
                                [](Editor& editor, const Pick& pick) { click(editor, pick, held()); }),
        row<Kind::ListOf<Kind::TimelinePick>>("setPicks", "Pick Blocks", {"picks"}, set),
        row<Kind::Maybe<Kind::Seconds>>("bladeAll", "Split All at a Time", {"at"}, BladeCommands::bladeAll)
            .when(hasVideo),
        row<>("removeAllPicked", "Remove All That Is Picked", {}, RemoveCommands::removeAllPicked)
            .when(hasPicks),
        row<>("removePicked", "Remove What Is Picked", {}, RemoveCommands::removePicked).when(hasPicks),
        row<Kind::Seconds, Kind::Seconds, Kind::ListOf<Kind::OneOf<TimelineRow>>>(
            "picks", "What a Rubber Band Catches", {"from", "to", "in"},
            [](Editor& editor, double from, double to, const std::vector<TimelineRow>& rows) {
                return PickJson::of(caught(editor, from, to, {rows.begin(), rows.end()}));
            })
            .when(hasVideo),
        row<>("picksInWords", "The Picks in Words", {},
              [](Editor& editor) { return OneLineJson::of(inWords(editor)); }),
        row<>("askAboutPicks", "Ask About the Picks", {}, ask),
        row<>("copyPicks", "Copy the Picks in Words", {}, copy),
        row<Kind::Seconds, Kind::Number, Maybe<Kind::AnyBlock>, Maybe<Kind::LineTag>>(
            "snapped", "Where a Dragged Time Snaps", {"t", "scale", "except", "caption"},
            [](Editor& editor, double time, double scale, const MaybeId& except, const MaybeLine& caption) {
                return OneLineJson::of(snapped(editor, time, scale, except, idOf(caption), held()));
            }),
        row<Kind::Seconds, Kind::SourceName, Kind::Number>(
            "snappedEdge", "Where a Trimmed Edge Snaps", {"t", "on", "scale"},
            [](Editor& editor, double time, const UUID& source, double scale) {
                return OneLineJson::of(snappedEdge(editor, time, source, scale, held()));
            }),
        row<Kind::Seconds, Kind::Seconds, Kind::Seconds, Kind::Number, Maybe<Kind::AnyBlock>,
            Maybe<Kind::LineTag>>(
            "shift", "By How Much a Dragged Block Moves", {"a", "b", "by", "scale", "except", "caption"},
            [](Editor& editor, double a, double b, double by, double scale, const MaybeId& except,
               const MaybeLine& caption) {
                return OneLineJson::of(shifted(editor, a, b, by, scale, except, caption));
            }),
    };
}

}
