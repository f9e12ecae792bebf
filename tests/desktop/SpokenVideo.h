#pragma once

#include "core/model/Project.h"
#include "tests/desktop/TimelineVideo.h"

namespace murbo {

/// A project of one clip with lines in several scripts, of which the video of `TimelineVideo` plays some.
struct SpokenVideo : TimelineVideo {
    SpokenVideo() {
        editor.apply([this](Project& project) {
            source = project.sources[0].id;
            clip = project.clips[0].id;
            auto& said = project.transcripts[source];
            said.lines =
                std::vector<Line>{line(11, 13, "first line of all"), line(13.5, 14.5, "ไม่เป็นไร เดินช้า ๆ"),
                                  line(31, 32, "二行目の言葉です"), line(40, 41, "never heard"),
                                  line(51, 54, "no no 🙂 the floor")};
            said.lines.edit()[3].gone = true;
            said.notes = std::vector<Note>{{.start = 33, .end = 34, .text = "falls down"}};
        });
        editor.writeHistory();
    }

    static Line line(double start, double end, const std::string& text) {
        return {.start = start, .end = end, .text = text};
    }
    const Line& said(std::size_t at) const { return editor.project().transcript(source).lines[at]; }

    UUID source;
    UUID clip;
};

}
