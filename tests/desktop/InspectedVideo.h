#pragma once

#include "app/desktop/inspector/Inspection.h"
#include "tests/desktop/TimelineVideo.h"

namespace murbo {

/// A video with something of every kind on it, as the Inspector tab shows it.
class InspectedVideo : public TimelineVideo {
public:
    InspectedVideo() {
        editor.openOnTimeline(editor.project().videos[0].id);
        editor.apply([](Project& project) {
            auto& video = project.videos.edit()[0];
            const auto source = project.sources[0].id;
            auto& look = *video.look;
            look.shots.edit() = {{.source = source, .at = 10}, {.source = source, .at = 31, .zoom = 2}};
            look.overlays.edit() = {
                {.playbook = "stock.hook", .source = source, .at = 12, .length = 2},
                {.playbook = "stock.hook", .source = source, .at = 32, .length = 1, .mute = true}};
            look.music.edit() = {
                {.file = "media/music/song.mp3", .source = source, .at = 10, .volume = 0.5, .length = 4}};
        });
    }

    const Look& look() const { return *editor.video()->look; }
    void pick(Pick::Kind kind, const UUID& id) { editor.setPicked(Pick{kind, id, {}}); }

    Inspection inspection{editor};
};

}
