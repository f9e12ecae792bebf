#include "core/model/Project.h"
#include "core/model/Times.h"
#include "core/render/sound/SoundMixer.h"
#include "tests/TemporaryFolder.h"
#include "tests/sound/Waves.h"

#include <cmath>
#include <cstring>
#include <random>

#include <gtest/gtest.h>

using namespace murbo;

namespace {

const UUID one = UUID::make();
const UUID two = UUID::make();

/// A video on two sound files.
struct Stage {
    TemporaryFolder folder;
    Video video;
    Plan plan;

    Stage() { plan.sources = {{one, folder / "one.wav"}, {two, folder / "two.wav"}}; }

    void put(const UUID& source, const std::vector<float>& samples) {
        waves::write(plan.sources.at(source), samples);
    }
    void show(const UUID& source, double start, double end, bool muted = false) {
        Cut cut{.source = source, .start = start, .end = end};
        if (muted) cut.muted = true;
        video.cuts.edit().push_back(cut);
    }
    std::filesystem::path song(const std::string& name, const std::vector<float>& samples) {
        waves::write(folder / name, samples);
        return folder / name;
    }
    SoundMixer mixer() const { return {SoundMix::tracks(video, plan), video.length()}; }
    /// The whole video's sound, read in blocks of some size.
    std::vector<float> mixed(std::int64_t block = 1601) const {
        SoundMixer mixer = this->mixer();
        std::vector<float> all(2 * mixer.frames());
        for (std::int64_t from = 0; from < mixer.frames(); from += block)
            mixer.read(from, std::span(all).subspan(2 * from, 2 * std::min(block, mixer.frames() - from)));
        return all;
    }
};

std::vector<float> stretch(const std::vector<float>& samples, std::int64_t from, std::int64_t until) {
    return {samples.begin() + 2 * from, samples.begin() + 2 * until};
}

/// The frames at which anything sounds, read second by second.
std::vector<std::int64_t> clicks(SoundMixer mixer) {
    std::vector<std::int64_t> clicks;
    std::vector<float> second(2 * 48000);
    for (std::int64_t from = 0; from < mixer.frames(); from += 48000) {
        mixer.read(from, second);
        for (std::int64_t frame = 0; frame < 48000; ++frame)
            if (second[2 * frame] > 0.1F) clicks.push_back(from + frame);
    }
    return clicks;
}

/// Times as editors round them to the frames of 29.97.
double filmTime(int frame) {
    return frame * 1001.0 / 30000;
}

}

TEST(SoundMixer, aSplitThatGoesOnIsNotHeard) {
    Stage stage;
    const auto tone = waves::tone(48000 * 12, 440, 0.8);
    stage.put(one, tone);
    for (int each = 0; each < 100; ++each)
        stage.show(one, 1 + filmTime(each * 3), 1 + filmTime(each * 3 + 3));
    Stage whole;
    whole.put(one, tone);
    whole.show(one, 1, 1 + filmTime(300));
    EXPECT_EQ(stage.mixed(), whole.mixed());
    const auto middle = stretch(stage.mixed(), 4800, 480000);
    EXPECT_EQ(middle, stretch(tone, 48000 + 4800, 48000 + 480000)) << "and is the file's own sound";
}

TEST(SoundMixer, aJumpDoesNotClick) {
    Stage stage;
    stage.put(one, waves::tone(48000 * 4, 100, 0.8));
    for (const double at : {1.0025, 3.0, 2.0075, 0.5025}) stage.show(one, at, at + 0.2025);
    const float ownStep = waves::largestStep(waves::tone(48000, 100, 0.8));
    const auto sound = stage.mixed();
    EXPECT_LE(waves::largestStep(sound), ownStep + 0.8F / 240 + 1e-4F);
    EXPECT_LT(std::abs(sound.front()), 0.01) << "the video's start is a jump too";
    EXPECT_LT(std::abs(sound.back()), 0.01);
    EXPECT_NEAR(waves::level(stretch(sound, 2400, 7200), 0, 4800), 0.8, 0.02)
        << "between its edges a cut is as loud as ever";
}

TEST(SoundMixer, aSoundFromItsFilesStartKeepsItsAttack) {
    Stage stage;
    stage.put(one, waves::tone(48000, 440, 0));
    stage.show(one, 0, 1);
    const auto hit = waves::made(
        4800, [](int) { return 0.9F; }, [](int) { return -0.9F; });
    stage.video.look.emplace().sounds.edit() = {
        {.file = stage.song("hit.wav", hit), .source = one, .at = 0.5, .volume = 1}};
    EXPECT_EQ(stretch(stage.mixed(), 24000, 28800), hit);
}

TEST(SoundMixer, everyMomentStandsAtItsOwnFrameHoweverLongTheVideo) {
    // A click at every second of the footage; cuts of film times that each hold one, 10 minutes in all.
    Stage stage;
    std::vector<float> ticks(2 * 48000 * 64);
    for (int second = 0; second < 64; ++second)
        ticks[2 * 48000 * second] = ticks[2 * 48000 * second + 1] = 0.5F;
    stage.put(one, ticks);
    std::vector<std::int64_t> expected;
    double start = 0;
    for (int each = 0; each < 1000; ++each) {
        const int second = 1 + each * 17 % 60;
        const double from = Times::onTick(filmTime(second * 30 - 9));
        const double to = Times::onTick(filmTime(second * 30 + 9));
        stage.show(one, from, to);
        expected.push_back(std::llround((start + (second - from)) * 48000));
        start += to - from;
    }
    const auto heard = clicks(stage.mixer());
    ASSERT_EQ(heard.size(), expected.size());
    std::int64_t worst = 0;
    for (std::size_t each = 0; each < heard.size(); ++each)
        worst = std::max(worst, std::abs(heard[each] - expected[each]));
    EXPECT_LE(worst, 1) << "frames of 1/48000 s";
    EXPECT_NEAR(start, 1000 * 18 * 1001.0 / 30000, 0.1);
}

TEST(SoundMixer, cutsThatEndBeforeTheyStartTakeNoTime) {
    Stage stage;
    stage.put(one, std::vector<float>(2 * 48000 * 60, 0.25F));
    for (const auto& [from, to] :
         {std::pair{2.0, 12.0}, {29.0, 20.0}, {30.0, 38.0}, {48.0, 40.0}, {50.0, 51.0}})
        stage.show(one, from, to);
    const auto all = stage.mixed();
    ASSERT_EQ(all.size(), 2U * 48000 * 19);
    for (const int second : {5, 14, 18}) EXPECT_EQ(all[2 * 48000 * second + 24000], 0.25F) << second;
}

TEST(SoundMixer, isTheSameHoweverItIsRead) {
    Stage stage;
    std::minstd_rand random(3);
    std::uniform_real_distribution<float> any(-1, 1);
    const auto draw = [&](int) { return any(random); };
    stage.put(one, waves::made(48000 * 4, draw, draw));
    stage.put(two, waves::made(48000 * 3, draw, draw));
    stage.show(one, 0.5, 2);
    stage.show(two, 0, 1);
    stage.show(one, 2, 3);
    const auto song = stage.song("song.wav", waves::made(48000 * 3, draw, draw));
    stage.video.look.emplace().music.edit() = {{.file = song, .source = one, .at = 0.7, .volume = 1}};
    const auto whole = stage.mixed(1 << 20);
    EXPECT_LE(waves::peak(whole), Limiter::ceiling);
    EXPECT_EQ(stage.mixed(333), whole);
    SoundMixer mixer = stage.mixer();
    for (const std::int64_t from : {100000, 5000, 0, 70001, 99000, 0}) {
        std::vector<float> part(2 * 20000);
        mixer.prepare(from, from + 20000);
        mixer.read(from, part);
        EXPECT_EQ(part, stretch(whole, from, from + 20000)) << from;
    }
}

TEST(SoundMixer, aBrokenFileIsSilentAloneAndSoIsWhatLiesPastTheEnd) {
    Stage stage;
    stage.put(one, waves::tone(48000, 440, 0.5));
    stage.folder.file("two.wav", "RIFF, and no more");
    stage.show(two, 0, 1);
    stage.show(one, 0.5, 3);
    const auto sound = stage.mixed();
    EXPECT_EQ(waves::peak(stretch(sound, 0, 48000)), 0);
    EXPECT_NEAR(waves::level(sound, 50000, 70000), 0.5, 0.01);
    EXPECT_EQ(waves::peak(stretch(sound, 72000, 168000)), 0);
    std::vector<float> behind(2000, 1);
    stage.mixer().read(48000 * 10, behind);
    EXPECT_EQ(waves::peak(behind), 0);
}

TEST(SoundMixer, numbersThatAreNoneAreSilence) {
    Stage stage;
    stage.put(one, waves::made(
                       48000, [](int frame) { return frame % 3 == 0 ? NAN : HUGE_VALF; },
                       [](int) { return 0.25F; }));
    stage.show(one, 0, 1);
    const auto sound = stage.mixed();
    for (std::size_t at = 0; at < sound.size(); at += 2) ASSERT_EQ(sound[at], 0);
    EXPECT_EQ(sound[20001], 0.25F);
}

TEST(SoundMixer, keepsFewFilesOpen) {
    Stage stage;
    const auto openFiles = [] {
        return std::distance(std::filesystem::directory_iterator("/proc/self/fd"),
                             std::filesystem::directory_iterator());
    };
    std::vector<float> ticks = waves::tone(48000, 440, 0.5);
    for (int each = 0; each < 60; ++each) {
        const UUID source = UUID::make();
        stage.plan.sources[source] = stage.song(std::to_string(each) + ".wav", ticks);
        stage.show(source, 0, 1);
    }
    const auto before = openFiles();
    SoundMixer mixer = stage.mixer();
    mixer.prepare(24'000, 144'000);
    EXPECT_EQ(openFiles() - before, 3) << "those that sound in it";
    std::vector<float> second(2 * 48000);
    for (int each = 0; each < 60; ++each) {
        mixer.read(each * 48000, second);
        EXPECT_LE(openFiles() - before, 13);
    }
}
