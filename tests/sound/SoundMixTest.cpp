#include "core/render/sound/SoundMix.h"

#include <cmath>

#include <fmt/format.h>
#include <gtest/gtest.h>

using namespace murbo;

namespace {

const UUID one = UUID::make();
const UUID two = UUID::make();

Cut cut(const UUID& source, double start, double end, bool muted = false) {
    Cut cut{.source = source, .start = start, .end = end};
    if (muted) cut.muted = true;
    return cut;
}

SoundCue cue(double at, std::optional<double> volume = {}) {
    return {.file = fmt::format("/{:f}", at), .source = one, .at = at, .volume = volume};
}

/// A video of cuts on two sources, and what `SoundMix` makes of it. Every sound file is a minute long.
struct Mixed {
    Video video;
    Plan plan;
    double fileLength = 60;
    std::set<UUID> missing;

    explicit Mixed(std::vector<Cut> cuts) {
        video.cuts = std::move(cuts);
        plan.sources = {{one, "/one.mp4"}, {two, "/two.mp4"}};
    }
    Look& look() {
        if (!video.look) video.look.emplace();
        return *video.look;
    }
    Mix& mix() {
        if (!look().mix) look().mix.emplace();
        return *look().mix;
    }
    /// An overlay with a sound in it; `more` are further members of its layer.
    void overlay(double start, double end, const std::string& more = "", const std::string& file = "/boo") {
        const Book book{Playbook::decode(fmt::format(
            R"({{"name": "a", "params": {{"none": {{"type": "media"}}}}, "layers": [{{"shape": "rect"}}, {{"sound": "{}"{}}}]}})",
            file, more))};
        plan.overlays.push_back({.start = start, .end = end, .book = book});
    }
    std::vector<SoundMix::Track> tracks() const {
        return SoundMix::tracks(video, plan, missing, [&](const std::filesystem::path& file) {
            return file == "/broken" ? std::nullopt : std::optional(fileLength);
        });
    }
};

std::string text(const SoundMix::Curve& curve) {
    std::string text;
    for (const SoundMix::Ramp& ramp : curve)
        text += fmt::format("{}{:.4g}-{:.4g} {:.3g}>{:.3g}", text.empty() ? "" : ", ", ramp.start, ramp.end,
                            ramp.from, ramp.to);
    return text;
}

std::string text(const SoundMix::Track& track) {
    std::string text = track.file.filename();
    for (const SoundMix::Piece& piece : track.pieces)
        text += fmt::format(" {:.4g}-{:.4g}@{:.4g}", piece.start, piece.end, piece.from);
    return text;
}

std::string text(const std::vector<SoundMix::Track>& tracks) {
    std::string all;
    for (const SoundMix::Track& track : tracks) all += (all.empty() ? "" : "; ") + text(track);
    return all;
}

std::string curve(std::vector<Cut> cuts, std::optional<double> level = {}) {
    Mixed mixed(std::move(cuts));
    if (level) mixed.mix().video = level;
    const auto tracks = mixed.tracks();
    return tracks.empty() ? "nothing" : text(tracks.front().gains);
}

}

TEST(SoundMix, footageSoundsWhereItsCutsShowIt) {
    EXPECT_EQ(text(Mixed({}).tracks()), "");
    EXPECT_EQ(text(Mixed({cut(one, 10, 14), cut(two, 0, 2), cut(one, 20, 21)}).tracks()),
              "one.mp4 0-4@10 6-7@20; two.mp4 4-6@0");
    EXPECT_EQ(text(Mixed({cut(one, 10, 14), cut(one, 14.0005, 16), cut(one, 16.002, 17)}).tracks()),
              "one.mp4 0-6@10 6-6.998@16")
        << "a split is one piece, a jump is not";
    EXPECT_EQ(text(Mixed({cut(one, 0, 2), cut(one, 2, 3, true), cut(one, 3, 4)}).tracks()),
              "one.mp4 0-2@0 3-4@3");
    EXPECT_EQ(text(Mixed({cut(UUID::make(), 0, 2), cut(one, 0, 1)}).tracks()), "one.mp4 2-3@0")
        << "a generated stretch";
    Mixed missing({cut(one, 0, 2), cut(two, 0, 2)});
    missing.missing = {one};
    EXPECT_EQ(text(missing.tracks()), "two.mp4 2-4@0");
}

TEST(SoundMix, manySmallJumpsDontAddUpToSoundOutOfStep) {
    std::vector<Cut> cuts;
    for (int each = 0; each < 1000; ++each) cuts.push_back(cut(one, each * 2.0006, each * 2.0006 + 2));
    double start = 0;
    const auto pieces = Mixed(cuts).tracks().front().pieces;
    std::size_t piece = 0;
    for (const Cut& each : cuts) {
        while (pieces[piece].end <= start) ++piece;
        EXPECT_NEAR(pieces[piece].from + (start - pieces[piece].start), each.start, 0.00101);
        start += each.length();
    }
}

TEST(SoundMix, footageFadesRoundWhatIsMuted) {
    EXPECT_EQ(curve({cut(one, 0, 5)}), "") << "no mix at all";
    EXPECT_EQ(curve({cut(one, 0, 2), cut(one, 2, 3, true), cut(one, 3, 5)}),
              "0-1.92 1>1, 1.92-2 1>0, 2-3 0>0, 3-3.08 0>1, 3.08-5 1>1");
    EXPECT_EQ(curve({cut(one, 0, 2, true), cut(one, 2, 4)}), "0-2 0>0, 2-2.08 0>1, 2.08-4 1>1");
    EXPECT_EQ(curve({cut(one, 0, 2), cut(one, 2, 4, true)}, 0.5),
              "0-1.92 0.5>0.5, 1.92-2 0.5>0, 2-4 0>0, 4-4.08 0>0.5");
    EXPECT_EQ(curve({cut(one, 0, 1), cut(one, 1, 2, true), cut(one, 2, 2.16), cut(one, 3, 4, true),
                     cut(one, 4, 5)}),
              "0-0.92 1>1, 0.92-1 1>0, 1-3.16 0>0, 3.16-3.24 0>1, 3.24-4.16 1>1")
        << "0.16 s between two muted cuts is one silent stretch";
    EXPECT_EQ(curve({cut(one, 0, 5)}, 0.25), "0-5 0.25>0.25");
    EXPECT_EQ(curve({cut(one, 0, 5)}, 0), "nothing");
}

TEST(SoundMix, musicFadesInAndOut) {
    Mixed mixed({cut(one, 0, 10)});
    mixed.look().music.edit() = {cue(2)};
    mixed.mix().music = 2;
    const auto tracks = mixed.tracks();
    ASSERT_EQ(text(tracks), "one.mp4 0-10@0; 2.000000 2-10@0");
    for (const auto& [time, gain] :
         {std::pair{2.0, 0.0}, {2.15, 0.35}, {2.3, 0.7}, {5.0, 0.7}, {8.5, 0.7}, {9.25, 0.35}, {10.0, 0.0}})
        EXPECT_NEAR(SoundMix::gain(tracks[1].gains, time), gain, 1e-9) << time;
    EXPECT_LT(tracks[1].gains.size(), 25) << "level stretches are one ramp";
}

TEST(SoundMix, whatIsLeftOfACueDecidesItsLength) {
    struct Case {
        const char* what;
        double at;
        std::optional<double> length, skip;
        double fileLength;
        const char* expected;
    };
    for (const Case& each :
         {Case{"to the video's end", 8, {}, {}, 60, "8-10@0"},
          Case{"to the file's end", 2, {}, 1.0, 5, "2-6@1"}, Case{"its own length", 2, 3.0, 4.0, 60, "2-5@4"},
          Case{"longer than the file", 2, 30.0, {}, 5, "2-7@0"},
          Case{"just long enough", 2, 0.06, {}, 60, "2-2.06@0"}, Case{"too short", 2, 0.05, {}, 60, ""},
          Case{"skipped past its end", 2, {}, 5.0, 5, ""}, Case{"not shown", 12, {}, {}, 60, ""},
          Case{"no number", 2, NAN, {}, 60, "2-10@0"}, Case{"skipping none", 2, {}, NAN, 60, ""},
          Case{"below nothing", 2, -1e308, {}, 60, ""}, Case{"endless", 2, {}, {}, HUGE_VAL, "2-10@0"}}) {
        Mixed mixed({cut(two, 0, 0.01), cut(one, 0.01, 10)});
        mixed.fileLength = each.fileLength;
        SoundCue made = cue(each.at);
        made.length = each.length;
        made.skip = each.skip;
        mixed.look().sounds.edit() = {made};
        const auto tracks = mixed.tracks();
        EXPECT_EQ(tracks.size() < 3 ? "" : text(tracks[2]).substr(9), each.expected) << each.what;
    }
}

TEST(SoundMix, aShortSongFadesInAQuarterAndOutInAThird) {
    Mixed mixed({cut(one, 0, 10)});
    SoundCue song = cue(1, 1);
    song.length = 0.06;
    mixed.look().music.edit() = {song};
    EXPECT_EQ(text(mixed.tracks()[1].gains), "1-1.015 0>1, 1.015-1.04 1>1, 1.04-1.06 1>0");
}

TEST(SoundMix, musicGivesWayToSpeech) {
    Mixed mixed({cut(one, 0, 40)});
    mixed.look().music.edit() = {cue(0, 1)};
    mixed.plan.cues = {{.start = 10, .end = 12},   {.start = 12.4, .end = 14}, {.start = 20, .end = 22},
                       {.start = 22.5, .end = 24}, {.start = 30, .end = 36},   {.start = 31, .end = 32}};
    const auto gain = [&](double time) { return SoundMix::gain(mixed.tracks()[1].gains, time); };
    EXPECT_NEAR(gain(11), 1, 1e-9) << "music never ducks by itself";
    mixed.mix().duck = 0.2;
    constexpr std::pair<double, double> gains[] = {{9.7, 1.0},   {10.0, 0.2}, {12.2, 0.2}, {14.0, 0.2},
                                                   {14.1, 0.52}, {14.3, 1.0}, {22.0, 0.2}, {22.2, 0.84},
                                                   {22.5, 0.2},  {34.0, 0.2}};
    for (const auto& [time, expected] : gains) EXPECT_NEAR(gain(time), expected, 1e-6) << time;
    mixed.mix().duck = 1;
    for (const double time : {9.9, 11.0, 12.2, 14.1, 22.2}) EXPECT_NEAR(gain(time), 1, 1e-9) << time;
}

TEST(SoundMix, soundsOfOverlaysRingOutUnlessTheyAreLong) {
    struct Case {
        const char* what;
        const char* layer;
        double overlay, fileLength;
        const char* expected;
    };
    for (const Case& each :
         {Case{"a short one rings out", "", 1, 3, "5-8@0"}, Case{"up to four seconds", "", 1, 4, "5-9@0"},
          Case{"a longer one ends with its overlay", "", 1, 5, "5-6@0"},
          Case{"what is left of it counts", R"(, "start": 57)", 1, 60, "5-8@57"},
          Case{"at the video's end", "", 5, 60, "5-10@0"},
          Case{"when its layer comes on", R"(, "from": 1)", 3, 60, "6-8@0"},
          Case{"as fast as the overlay", R"(, "from": 1)", 1.5, 60, "5.5-6.5@0"},
          Case{"by the overlay's last moment", R"(, "from": 2.99)", 3, 60, "7.99-8.09@0"},
          Case{"too little left", R"(, "start": 59.96)", 1, 60, ""},
          Case{"nothing left", R"(, "start": 99)", 1, 60, ""}}) {
        Mixed mixed({cut(one, 0, 10)});
        mixed.fileLength = each.fileLength;
        mixed.overlay(5, 5 + each.overlay, each.layer);
        const auto tracks = mixed.tracks();
        EXPECT_EQ(tracks.size() < 2 ? "" : text(tracks[1]).substr(4), each.expected) << each.what;
        if (tracks.size() > 1) {
            EXPECT_EQ(SoundMix::gain(tracks[1].gains, 7), 1) << "without a volume";
        }
    }
}

TEST(SoundMix, everyLaneHasItsLevelAndABrokenFileCostsItsTrackAlone) {
    Mixed mixed({cut(one, 0, 10), cut(one, 0, 10)});
    mixed.overlay(1, 2, R"(, "volume": 0.5)");
    for (const char* file : {"/broken", "own.wav of no folder", "$none"}) mixed.overlay(2, 3, "", file);
    mixed.look().sounds.edit() = {
        cue(3), cue(4, 0.5), {.file = "/broken", .source = one}, {.file = "somewhere.wav", .source = one}};
    mixed.look().music.edit() = {cue(5)};
    mixed.mix() = {.overlays = 0.5, .sounds = 0.25, .duck = 0.1};
    mixed.plan.cues = {{.start = 0, .end = 20}};
    const auto tracks = mixed.tracks();
    ASSERT_EQ(text(tracks),
              "one.mp4 0-10@0 10-20@0; 5.000000 5-20@0; 3.000000 3-20@0; 4.000000 4-20@0; boo 1-2@0");
    EXPECT_EQ(text(tracks[2].gains), "3-20 0.175>0.175");
    EXPECT_EQ(text(tracks[3].gains), "4-20 0.125>0.125");
    EXPECT_EQ(text(tracks[4].gains), "1-2 0.25>0.25");
    EXPECT_EQ(SoundMix::files(mixed.video, mixed.plan),
              (std::vector<std::filesystem::path>{"/5.000000", "/3.000000", "/4.000000", "/broken", "/boo",
                                                  "/broken"}));
    mixed.mix() = {.overlays = 0, .sounds = 0};
    EXPECT_EQ(mixed.tracks().size(), 2);
    EXPECT_EQ(SoundMix::lengthOf("/nowhere/at all.wav"), std::nullopt);
}

TEST(SoundMix, footageIsSilentUnderOverlaysThatSaySo) {
    Mixed mixed({cut(one, 0, 5), cut(one, 5, 7, true), cut(one, 7, 10)});
    mixed.overlay(2, 3);
    mixed.overlay(4, 5.5);
    for (auto& each : mixed.plan.overlays) each.overlay.mute = true;
    mixed.overlay(8, 9);
    EXPECT_EQ(text(mixed.tracks()[0].gains),
              "0-1.92 1>1, 1.92-2 1>0, 2-3 0>0, 3-3.08 0>1, 3.08-3.92 1>1, "
              "3.92-4 1>0, 4-7 0>0, 7-7.08 0>1, 7.08-10 1>1");
}

TEST(SoundMix, whatPlaybooksAskForIsBounded) {
    Mixed mixed({cut(one, 0, 10)});
    for (int each = 0; each < 3000; ++each) mixed.overlay(1, 2);
    EXPECT_EQ(mixed.tracks().size(), 1001);

    // Layers that come to nothing, among them one that does.
    std::string layers = R"({"sound": "/boo"})";
    for (int each = 0; each < 500; ++each) layers += R"(,{"sound": "../../x"},{"shape": "rect"})";
    const Book book{Playbook::decode(R"({"name": "a", "layers": [)" + layers + "]}"), "/tmp"};
    mixed.plan.overlays.assign(20'000, {.start = 1, .end = 2, .book = book});
    EXPECT_EQ(mixed.tracks().size(), 41);
}
