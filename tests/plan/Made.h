#pragma once

#include "core/model/Project.h"

namespace murbo {

/// Short ways to records for these tests.
namespace Made {

inline Cut cut(const UUID& source, double start, double end) {
    return {.source = source, .start = start, .end = end};
}

inline Shot shot(const UUID& source, double at) {
    return {.source = source, .at = at};
}

inline Line line(double start, double end, std::string text) {
    return {.start = start, .end = end, .text = std::move(text)};
}

/// A project of one source that is spoken on.
struct Spoken {
    UUID source = UUID::make();
    Project project;
    Video video;

    Spoken(std::vector<Line> lines, std::vector<std::pair<double, double>> cuts) {
        project.sources.edit().push_back({.id = source, .path = "/footage/one.mp4", .length = 100});
        project.transcripts[source].lines = std::move(lines);
        for (const auto& [start, end] : cuts) video.cuts.edit().push_back(cut(source, start, end));
    }

    const Line& line(std::size_t index) const { return project.transcripts.at(source).lines[index]; }
};

}

}
