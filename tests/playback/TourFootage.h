#pragma once

#include "app/editor/playback/PlayerItem.h"
#include "tests/playback/FakeOutput.h"
#include "tests/playback/NumberedMovie.h"
#include "tests/playback/NumberedSound.h"

#include <sstream>

#include <fmt/format.h>

namespace murbo {

/// An output that tells in the end how often it was used.
struct CountedOutput : FakeOutput {
    explicit CountedOutput(std::string& words) : told(words) {}
    ~CountedOutput() override {
        told = fmt::format("  the sound has started {} times and stopped {} times\n", starts.load(),
                           stops.load());
    }
    std::string& told;
};

/// What a tour's player plays: two numbered movies, one that is gone, and the ramp as sound.
class TourFootage {
public:
    /// Cuts as "a:1-2", "b:0.5-1.5" or "-:0.5" (generated), with "rate=50" and "gain=0.5".
    PlayerItem item(std::istringstream& words) const {
        Video video = samples::video(project, {});
        double gain = 1, rate = 0;
        for (std::string word; words >> word;) {
            char dash = 0;
            double start = 0, end = 0;
            std::istringstream(word.substr(word.find_first_of(":=") + 1)) >> start >> dash >> end;
            if (word.starts_with("gain="))
                gain = start;
            else if (word.starts_with("rate="))
                rate = start;
            else if (word.starts_with("-"))
                video.cuts.edit().push_back(Cut::generated("none", 1, std::nullopt, start));
            else
                video.cuts.edit().push_back(
                    {.source = project.sources[static_cast<std::size_t>(word[0] - 'a')].id,
                     .start = start,
                     .end = end});
        }
        auto made = PlayerItem::video(video, project, {}, "", std::nullopt);
        if (rate > 0) made.composition.rate = rate;
        made.sound = ramp.tracks(gain);
        return made;
    }

private:
    const NumberedSound ramp;
    const Project project =
        samples::project({numbered::movie("long.mp4"), numbered::movie("other.mp4"), "/gone.mp4"});
};

}
