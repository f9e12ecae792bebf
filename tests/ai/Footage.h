#pragma once

#include "core/ai/Said.h"

#include <initializer_list>
#include <string>

namespace murbo {

/// A project with one recording, whose clips say lines of one second each, two seconds apart: line n of a
/// clip lies from its start + 2n - 1 to its start + 2n.
class Footage {
public:
    Footage() {
        project.groups.edit() = {{.name = "Stream"}};
        project.sources.edit() = {{.group = project.groups[0].id,
                                   .path = "/footage/rec.mp4",
                                   .kind = Source::Kind::stream,
                                   .length = 7200}};
    }

    const UUID& source() const { return project.sources[0].id; }
    std::vector<Line>& lines() { return project.transcripts[source()].lines.edit(); }
    std::vector<Note>& notes() { return project.transcripts[source()].notes.edit(); }

    Clip& addClip(double start, std::initializer_list<const char*> said) {
        double at = start + 1;
        for (const auto* text : said) {
            lines().push_back({.start = at, .end = at + 1, .text = text});
            at += 2;
        }
        return project.clips.edit().emplace_back(
            Clip{.number = ++project.lastClip, .source = source(), .start = start, .end = at + 1});
    }

    Video& addVideo(std::string title, std::vector<Cut> cuts) {
        return project.videos.edit().emplace_back(
            Video{.number = ++project.lastVideo, .title = std::move(title), .cuts = std::move(cuts)});
    }

    Cut cut(double start, double end) const { return {.source = source(), .start = start, .end = end}; }

    Project project;
};

}
