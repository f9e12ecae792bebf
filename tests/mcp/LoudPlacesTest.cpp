#include "core/mcp/LoudPlaces.h"
#include "tests/mcp/Calling.h"

using namespace murbo;
using testing::HasSubstr;

using LoudPlacesTest = Calling;

TEST_F(LoudPlacesTest, silenceHasNoLoudestMoment) {
    context.loudness[source()].assign(72'000, 0);
    EXPECT_THAT(text("read_loudness", R"({"clips": ["C01"]})"), HasSubstr("or a sound fits: none\n"));
}

TEST_F(LoudPlacesTest, aVideoIsHeardCutByCutOnItsOwnClock) {
    project.videos.edit()[0].cuts.edit().insert(video().cuts.begin() + 1,
                                                Cut::generated("p", 1, std::nullopt, 2));
    video().cuts.edit().push_back({.source = UUID::make(), .start = 1, .end = 2}); // of footage that is gone
    const auto found = LoudPlaces::stretches(json{{"video", "V1"}}, project);
    EXPECT_TRUE(found.onVideo);
    ASSERT_EQ(found.all.size(), 2u);
    EXPECT_EQ(std::pair(found.all[0].at, found.all[1].at), std::pair(0.0, 5.0));
    EXPECT_EQ(found.all[1].on, (Stretch{101, 104}));
    const auto clips = LoudPlaces::stretches(json{{"clips", {"C02", "C01"}}}, project);
    EXPECT_FALSE(clips.onVideo);
    EXPECT_EQ(clips.all[0].at, 100);
    EXPECT_EQ(LoudPlaces::sources(json{{"clips", {"C02", "C01"}}}, project), std::vector{source()});
}

TEST_F(LoudPlacesTest, theLoudestMomentsAreAtMostEightAndTwoSecondsApart) {
    addClip(200, {"a"}).end = 240;
    auto& levels = context.loudness[source()];
    levels.assign(72'000, 0);
    for (int at = 0; at < 20; ++at)
        levels[static_cast<std::size_t>(2000 + at * 15)] = static_cast<std::uint8_t>(100 + at);
    const auto told = text("read_loudness", R"({"clips": ["C03"]})");
    const auto from = told.find("fits: ") + 6;
    const auto peaks = told.substr(from, told.find("\n\nNobody") - from);
    EXPECT_EQ(std::count(peaks.begin(), peaks.end(), ';'), 7);
    EXPECT_THAT(peaks, testing::EndsWith("3:48, C03.01 + 26.5 s"));
    EXPECT_THAT(peaks, testing::StartsWith("3:27, ")) << "every second one, from the loudest down";
    EXPECT_THAT(told, testing::EndsWith("Nobody speaks for 2 s or more: 3:22 to 4:00, C03.01"));
}

TEST_F(LoudPlacesTest, aPeakLiesWithinItsStretchAndPeaksOfTwoSourcesAreNoNeighbours) {
    lines().push_back({.start = 200.05, .end = 201, .text = "odd"});
    project.clips.edit().push_back({.number = 3, .source = source(), .start = 200.05, .end = 203});
    const auto other = UUID::make();
    project.sources.edit().push_back({.id = other, .path = "/footage/cam.mp4", .length = 300});
    project.clips.edit().push_back({.number = 4, .source = other, .start = 200, .end = 203});
    auto& levels = context.loudness[source()];
    levels.assign(3000, 0);
    levels[2000] = 100; // 200.0 s, which the clip just reaches into
    levels[2035] = 200; // beyond its end
    context.loudness[other] = levels;
    auto both = std::vector{source(), other};
    std::ranges::sort(both);
    EXPECT_EQ(LoudPlaces::sources(json{{"clips", {"C01", "C04", "C03"}}}, project), both) << "each once";
    EXPECT_THAT(text("read_loudness", R"({"clips": ["C03", "C04"]})"),
                HasSubstr("or a sound fits: 3:20; 3:20, C03.01\n"));
}

TEST_F(LoudPlacesTest, placesBeyondFortyAreCounted) {
    auto& levels = context.loudness[source()];
    levels.assign(72'000, 50);
    addClip(1000, {}).end = 1420;
    for (std::size_t at = 0; at < 42; ++at)
        std::fill_n(levels.begin() + static_cast<std::ptrdiff_t>(10'000 + at * 100), 10, std::uint8_t{200});
    EXPECT_THAT(text("read_loudness", R"({"clips": ["C03"]})"), HasSubstr("; and 2 more\n\nThe loudest"));
}
