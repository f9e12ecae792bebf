#include "app/editor/commands/RemoveCommands.h"

#include "app/editor/commands/CaptionCommands.h"
#include "app/editor/commands/Changes.h"
#include "app/editor/commands/CutCommands.h"
#include "app/editor/commands/LookCommands.h"
#include "app/editor/commands/TimelinePicks.h"
#include "core/model/edits/VideoEdits.h"

namespace murbo::RemoveCommands {
namespace {

template <class Records>
void eraseFrom(Records& records, const UUID& id) {
    std::erase_if(records.edit(), [&](const auto& one) { return one.id == id; });
}

void take(Video& video, const Pick& pick) {
    if (pick.kind == Pick::Kind::cut) return VideoEdits::remove(video, pick.id);
    if (pick.kind == Pick::Kind::caption && !video.look) video.look.emplace();
    if (!video.look) return;
    auto& look = *video.look;
    switch (pick.kind) {
        case Pick::Kind::cut:
            return;
        case Pick::Kind::shot:
            return eraseFrom(look.shots, pick.id);
        case Pick::Kind::overlay:
            return eraseFrom(look.overlays, pick.id);
        case Pick::Kind::sound:
            return eraseFrom(look.sounds, pick.id);
        case Pick::Kind::music:
            return eraseFrom(look.music, pick.id);
        case Pick::Kind::caption:
            return CaptionCommands::hide(look, pick.id, pick.piece);
    }
}

void takeOne(Editor& editor, const Pick& pick) {
    const auto remove = [&](const char* name) {
        if (editor.video())
            editor.change(name, [&](Project& project) { take(Changes::openVideo(editor, project), pick); });
    };
    switch (pick.kind) {
        case Pick::Kind::cut:
            return CutCommands::removeCut(editor);
        case Pick::Kind::shot:
            return remove("Remove Shot");
        case Pick::Kind::overlay:
            return remove("Remove Overlay");
        case Pick::Kind::sound:
        case Pick::Kind::music:
            return remove("Remove Sound");
        case Pick::Kind::caption:
            return remove("Hide Caption");
    }
}

}

void removePicked(Editor& editor) {
    const auto picks = TimelinePicks::all(editor);
    if (picks.size() > 1) return removeAllPicked(editor);
    if (!picks.empty()) takeOne(editor, picks.front());
}

void removeAllPicked(Editor& editor) {
    const auto picks = TimelinePicks::all(editor);
    if (picks.size() < 2) return removePicked(editor);
    if (editor.video())
        editor.change("Remove " + std::to_string(picks.size()) + " Items", [&](Project& project) {
            auto& video = Changes::openVideo(editor, project);
            for (const auto& pick : picks) take(video, pick);
        });
    TimelinePicks::set(editor, {});
}

}
