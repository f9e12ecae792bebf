#pragma once

#include "core/ai/Brief.h"
#include "core/ai/LastRuns.h"
#include "tests/ai/Footage.h"

namespace murbo {

/// A video that plays the whole of one clip of four lines, and a second clip.
struct Played : Footage {
    Played() {
        addClip(0, {"one two three", "four five six", "seven eight", "nine"});
        addClip(100, {"elsewhere"});
        addVideo("Mine", {cut(0, 10)});
    }
    Video& video() { return project.videos.edit()[0]; }
    const UUID& id() const { return project.videos[0].id; }
    Brief::Clips clips() const { return {&project.clips[0], &project.clips[1]}; }
    UUID line(std::size_t n) const { return (*project.transcripts.at(source()).lines)[n].id; }

    Run run = LastRuns::now(Run::By::app, "m");
};

}
