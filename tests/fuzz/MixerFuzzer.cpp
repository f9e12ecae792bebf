#include "core/model/HeardOptions.h"
#include "core/model/Muted.h"
#include "core/model/Project.h"
#include "core/render/sound/SoundMixer.h"
#include "tests/TemporaryFolder.h"
#include "tests/fuzz/RoundTrip.h"
#include "tests/sound/Waves.h"

#include <cmath>

using namespace murbo;

namespace {

constexpr std::size_t manyCuts = 200;        // more would only be slow
constexpr std::int64_t stretchFrames = 4801; // read at a few places of each video
constexpr float fullScale = 1.0001F;

/// A second of a loud tone, whatever a project calls its files.
const std::filesystem::path& recording() {
    static const TemporaryFolder folder;
    static const auto path = [] {
        waves::write(folder / "tone.wav", waves::tone(48000, 440, 0.9));
        return folder / "tone.wav";
    }();
    return path;
}

void useRecording(Video& video, Plan& plan) {
    for (auto& [id, file] : plan.sources) file = recording();
    if (!video.look) return;
    for (auto* cues : {&video.look->sounds, &video.look->music})
        for (auto& cue : cues->edit()) cue.file = recording().string();
}

std::vector<float> read(SoundMixer& mixer, std::int64_t from, std::int64_t block) {
    std::vector<float> all(2 * stretchFrames);
    for (std::int64_t at = 0; at < stretchFrames; at += block)
        mixer.read(from + at, std::span(all).subspan(2 * at, 2 * std::min(block, stretchFrames - at)));
    return all;
}

/// Every stretch sounds the same read at once, in pieces, and after others; it is never louder than full
/// scale.
void listen(const std::vector<SoundMix::Track>& tracks, double length) {
    SoundMixer whole(tracks, length);
    SoundMixer pieces(tracks, length);
    const auto frames = whole.frames();
    require(frames >= 0, "a video has a negative number of frames");
    for (const auto from : {frames - stretchFrames / 2, frames / 2, std::int64_t{0}}) {
        if (from < 0) continue;
        const auto sound = read(whole, from, stretchFrames);
        require(sound == read(pieces, from, 997), "read in pieces, the sound differs");
        require(std::ranges::all_of(sound, [](float value) { return std::abs(value) <= fullScale; }),
                "the sound is no number or too loud");
    }
}

void mix(Video video, const Project& project) {
    if (video.cuts.size() > manyCuts) return;
    auto plan = Plan::video(video, project, "", std::nullopt);
    useRecording(video, plan);
    const auto lengths = [](const std::filesystem::path&) { return std::optional(1.0); };
    for (const auto& heardOne :
         {video, heard(video, {.includingMutedRows = true, .includingMutedBlocks = true})})
        listen(SoundMix::tracks(heardOne, plan, {}, lengths), heardOne.length());
}

}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    try {
        const auto project = Codec::decode<Project>({reinterpret_cast<const char*>(bytes), size});
        for (std::size_t at = 0; at < std::min<std::size_t>(project.videos.size(), 3); ++at)
            mix(project.videos[at], project);
    } catch (const Problem&) { // no project
    }
    return 0;
}
