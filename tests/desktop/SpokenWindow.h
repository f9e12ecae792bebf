#pragma once

#include "tests/desktop/OnWindow.h"

namespace murbo {

/// A window on a project in whose first movie something is said, with the first clip held and in a video.
struct SpokenWindow : WindowOfProject {
    SpokenWindow() {
        editor().apply([](Project& project) {
            auto& lines = project.transcripts[project.sources[0].id].lines;
            const auto line = [](double start, double end, const char* text) {
                return Line{.start = start, .end = end, .text = text};
            };
            lines =
                std::vector<Line>{line(0.2, 0.9, "okay we have one heart"), line(1, 1.8, "ไม่เป็นไร เดินช้า ๆ"),
                                  line(2, 2.9, "二行目の言葉です"), line(3, 3.8, "no no 🙂 the floor")};
        });
        putIn();
        editor().setInspecting(Inspecting::browser);
        settle();
    }
};

}
