#include "app/editor/commands/BladeCommands.h"

#include "app/editor/commands/Changes.h"
#include "app/editor/commands/TimelinePicks.h"
#include "core/model/VideoTime.h"
#include "core/model/edits/LookEdits.h"
#include "core/model/edits/VideoEdits.h"

#include <algorithm>

namespace murbo::BladeCommands {
namespace {

bool split(Video& video, const Pick& pick, double at) {
    switch (pick.kind) {
        case Pick::Kind::cut: {
            const auto place = VideoTime::locate(at, video.cuts);
            return place && video.cuts[place->cut].id == pick.id && VideoEdits::splitAt(video, at);
        }
        case Pick::Kind::overlay:
            return LookEdits::splitOverlay(video, pick.id, at).has_value();
        case Pick::Kind::sound:
        case Pick::Kind::music:
            return LookEdits::splitSound(video, pick.id, at).has_value();
        case Pick::Kind::shot:
        case Pick::Kind::caption:
            return false;
    }
    return false;
}

/// All that lies at a time.
std::vector<Pick> blocksAt(const Editor& editor, double at) {
    return TimelinePicks::caught(
        editor, at, at,
        {TimelineRow::picture, TimelineRow::overlays, TimelineRow::sounds, TimelineRow::music});
}

}

bool blade(Editor& editor, const std::vector<Pick>& blocks, double at) {
    if (!editor.video()) return false;
    bool any = false;
    editor.change("Blade", [&](Project& project) {
        // In a copy: where nothing was split, nothing has been touched.
        auto video = *editor.video();
        for (const auto& block : blocks) any |= split(video, block, at);
        if (any) Changes::openVideo(editor, project) = std::move(video);
    });
    return any;
}

void bladeAll(Editor& editor, std::optional<double> time) {
    const double at = time.value_or(editor.playback.time());
    const auto there = blocksAt(editor, at);
    std::vector<Pick> picked;
    for (const auto& pick : TimelinePicks::all(editor))
        if (std::ranges::find(there, pick) != there.end()) picked.push_back(pick);
    if (!blade(editor, picked.empty() ? there : picked, at) && !time)
        editor.refuse("Too near an edit to split");
}

}
