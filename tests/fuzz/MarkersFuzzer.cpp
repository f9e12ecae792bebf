#include "core/intake/Markers.h"
#include "core/intake/Sources.h"
#include "core/model/Project.h"
#include "tests/fuzz/RoundTrip.h"

using namespace murbo;

namespace {

constexpr double length = 36'000;

/// The clips of a new stream are within it, apart, in order, and hold every mark that made one.
void checkClips(const Project& project) {
    const Clip* last = nullptr;
    for (const auto& clip : project.clips) {
        require(0 <= clip.start && clip.start < clip.end && clip.end <= length,
                "a clip lies outside its source");
        require(!clip.marks.empty(), "a clip has no mark");
        require(std::is_sorted(clip.marks.begin(), clip.marks.end()), "marks are out of order");
        require(!last || last->end < clip.start, "clips touch or are out of order");
        last = &clip;
    }
}

}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(bytes), size);
    const auto times = Markers::parse(text, "two.mkv");
    require(times.size() <= Markers::lines(text).size(), "a line gave two markers");
    for (const double time : times) require(std::isfinite(time), "a marker is no number");

    Project project;
    const auto id = Sources::addStream(project, {"/two.mkv", length}, {"m.csv", text, {}});
    require(project.source(id)->stream->markers == text, "the text was not kept");
    checkClips(project);
    return 0;
}
