#include "core/model/HeardOptions.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

using namespace murbo;

namespace {

/// Two cuts, two sounds and two songs, the first of each muted; the music lane off.
Video mixed() {
    Video video;
    video.cuts.edit() = {{.muted = true}, {}};
    auto& look = video.look.emplace();
    look.sounds.edit() = {{.volume = 0.3, .muted = true}, {.volume = 0.6}};
    look.music.edit() = {{.volume = 0.8, .muted = true}, {.volume = 0.9}};
    look.mix = Mix{.video = 0.1, .overlays = 0.2, .sounds = 0.3, .music = 0.4};
    look.mix->toggleMute(Lane::music);
    return video;
}

/// The cuts, the volumes of sounds and songs, and the levels of the lanes; with an x what is muted.
std::string told(const Video& video) {
    std::string text;
    const auto add = [&](const auto& block, double volume) {
        text += fmt::format("{}{:g} ", block.muted.value_or(false) ? "x" : "", volume);
    };
    for (const auto& cut : video.cuts) add(cut, 1);
    text += "| ";
    for (const auto& sound : video.look->sounds) add(sound, sound.volume.value_or(1));
    text += "| ";
    for (const auto& song : video.look->music) add(song, song.volume.value_or(1));
    text += "|";
    for (const auto lane : allLanes) text += fmt::format(" {:g}", video.look->mix->level(lane));
    return text + (video.look->mix->muted ? " x" : "");
}

}

TEST(HeardOptions, leavesOutWhatIsTurnedOffUnlessItIsAskedFor) {
    const std::pair<HeardOptions, const char*> cases[] = {
        {{}, "x1 1 | 0.6 | 0.9 | 0.1 0.2 0.3 0"},
        {{.includingMutedRows = true}, "x1 1 | 0.6 | 0.9 | 0.1 0.2 0.3 0.4"},
        {{.includingMutedBlocks = true}, "1 1 | 0.3 0.6 | 0.8 0.9 | 0.1 0.2 0.3 0"},
        {{.includingMutedRows = true, .soloed = {Lane::music}}, "x1 1 | 0.6 | 0.9 | 0 0 0 0.4"},
        {{.soloed = {Lane::sounds}}, "x1 1 | 0.6 | 0.9 | 0 0 0.3 0"},
        {{.includingMutedBlocks = true, .keepingTracks = true}, "1 1 | 0.3 0.6 | 0.8 0.9 | 0.1 0.2 0.3 0"},
        {{.includingMutedRows = true, .includingMutedBlocks = true},
         "1 1 | 0.3 0.6 | 0.8 0.9 | 0.1 0.2 0.3 0.4"},
        {{.keepingTracks = true}, "x1 1 | x0 0.6 | x0 0.9 | 0.1 0.2 0.3 0"},
    };
    for (const auto& [options, expected] : cases) EXPECT_EQ(told(heard(mixed(), options)), expected);

    const Video bare;
    EXPECT_EQ(heard(bare, {}).look, std::nullopt);
    EXPECT_EQ(heard(bare, {.soloed = {Lane::music}}).look->mix->video, 0);
}
