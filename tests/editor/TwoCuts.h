#pragma once

#include "tests/editor/Lines.h"

namespace murbo {

/// A session with the video V1 "One" on its timeline: cut 1 plays 20 to 30 s of "rec.mp4", cut 2 plays 40 to
/// 50 s of it. Nothing is picked, nothing is held, and the history is empty.
class TwoCuts : public Lines {
public:
    TwoCuts() : Lines(withVideo()) {
        (*this)(R"(["closeDrag"])"); // answered once the video is loaded
    }

    static Project withVideo() {
        auto project = made();
        Video video{.number = 1, .title = "One"};
        for (const double start : {20.0, 40.0})
            video.cuts.edit().push_back({.source = project.sources[0].id, .start = start, .end = start + 10});
        project.videos.edit().push_back(video);
        project.lastVideo = 1;
        return project;
    }

    const Video& video() { return *editor().video(); }
    const Look& look() {
        static const Look none;
        return video().look ? *video().look : none;
    }
    const UUID& rec() { return project().sources[0].id; }
    const UUID& cam() { return project().sources[1].id; }
    /// The line at a place of the transcript; two lie in each clip, the others in none.
    const Line& line(std::size_t at) { return project().transcript(rec()).lines[at]; }

    /// Lays a shot, an overlay of a second, a sound and a song on each of these times of "rec.mp4".
    void dress(const std::vector<double>& times) {
        editor().change("Blocks", [&](Project& project) {
            auto& made = project.videos.edit()[0].look.emplace();
            for (const double at : times) {
                made.shots.edit().push_back({.source = rec(), .at = at});
                made.overlays.edit().push_back(
                    {.playbook = "stock.hearts", .source = rec(), .at = at, .length = 1});
                made.sounds.edit().push_back({.file = "s.wav", .source = rec(), .at = at});
                made.music.edit().push_back({.file = "m.wav", .source = rec(), .at = at});
            }
        });
    }

    using Names = std::vector<std::string>;
};

}
