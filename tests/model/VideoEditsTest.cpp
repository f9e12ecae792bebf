#include "core/model/edits/VideoEdits.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

using namespace murbo;

namespace {

const Cut small{.start = 1, .end = 2};

/// Seams at 0, 2, 6 and 9.
const std::string three = "10-12 20-24 30-33 ";
Video threeCuts() {
    Video video;
    for (const auto& [start, end] : {std::pair{10, 12}, {20, 24}, {30, 33}})
        video.cuts.edit().push_back({.start = double(start), .end = double(end)});
    return video;
}

std::string told(const Video& video) {
    std::string text;
    for (const auto& one : video.cuts) text += fmt::format("{:g}-{:g} ", one.start, one.end);
    return text;
}

/// What becomes of the three cuts when something is done to them and their middle one.
template <class Change>
std::string after(Change change) {
    auto video = threeCuts();
    const UUID middle = video.cuts[1].id;
    change(video, middle);
    return told(video);
}

}

TEST(VideoEdits, findsCutsByTime) {
    const auto video = threeCuts();
    const std::tuple<double, std::optional<std::size_t>, std::size_t> cases[] = {
        {-1, {}, 0}, {0, 0, 0}, {1, 0, 1}, {2, 1, 1}, {3.99, 1, 1}, {4, 1, 2}, {8.9, 2, 3}, {9, {}, 3}};
    for (const auto& [time, index, place] : cases) {
        EXPECT_EQ(VideoEdits::indexAt(video, time), index) << time;
        EXPECT_EQ(VideoEdits::place(video, time), place) << time;
    }
    EXPECT_EQ(VideoEdits::start(video, video.cuts[2].id), 6);
    EXPECT_EQ(VideoEdits::start(video, UUID::make()), std::nullopt);
    EXPECT_EQ(VideoEdits::edits(video), (std::vector<double>{0, 2, 6, 9}));
    EXPECT_EQ(VideoEdits::edits(Video()), (std::vector<double>{0}));
}

TEST(VideoEdits, insertsAtAPositionWithinTheList) {
    for (const auto& [at, expected] : {std::pair{std::optional<std::ptrdiff_t>(-3), "1-2 10-12 20-24 30-33 "},
                                       {1, "10-12 1-2 20-24 30-33 "},
                                       {9, "10-12 20-24 30-33 1-2 "},
                                       {{}, "10-12 20-24 30-33 1-2 "}})
        EXPECT_EQ(after([&, at = at](Video& video, auto&) {
                      EXPECT_EQ(VideoEdits::insert(video, small, at), small.id);
                  }),
                  expected);
}

TEST(VideoEdits, insertsAtATimeAndSplitsWhatPlaysThere) {
    for (const auto& [time, expected] :
         {std::pair{-5.0, "10-12 1-2 20-24 30-33 "}, // held at the first moment
          {0.0005, "1-2 10-12 20-24 30-33 "},
          {2.0005, "10-12 1-2 20-24 30-33 "},
          {1.9995, "10-12 1-2 20-24 30-33 "},
          {3.0, "10-12 20-21 1-2 21-24 30-33 "},
          {2.05, "10-12 20-24 1-2 30-33 "},
          {8.9995, "10-12 20-24 30-33 1-2 "},
          {50.0, "10-12 20-24 30-33 1-2 "}})
        EXPECT_EQ(after([time = time](Video& video, auto&) { VideoEdits::insertAt(video, small, time); }),
                  expected)
            << time;
    Video empty;
    VideoEdits::insertAt(empty, small, 7);
    EXPECT_EQ(told(empty), "1-2 ");
}

TEST(VideoEdits, splitsIntoPartsThatCanBeSeen) {
    auto video = threeCuts();
    video.cuts.edit()[1].muted = true;
    const auto id = video.cuts[1].id;
    for (const double time : {19.0, 20.09, 23.95, 25.0})
        EXPECT_EQ(VideoEdits::split(video, id, time), std::nullopt);
    EXPECT_EQ(VideoEdits::split(video, UUID::make(), 21), std::nullopt);
    EXPECT_EQ(told(video), three);
    const auto right = VideoEdits::splitAt(video, 3);
    EXPECT_EQ(told(video), "10-12 20-21 21-24 30-33 ");
    EXPECT_EQ(video.cuts[1].id, id);
    EXPECT_EQ(video.cuts[2].id, right);
    EXPECT_EQ(video.cuts[2].muted, true);
    Video empty;
    EXPECT_EQ(VideoEdits::splitAt(empty, 0), std::nullopt);
}

TEST(VideoEdits, trimsAndSlipsWithinTheSource) {
    const auto start = [](double to) {
        return after([&](auto& video, auto& id) { VideoEdits::trimStart(video, id, to); });
    };
    const auto end = [](double to) {
        return after([&](auto& video, auto& id) { VideoEdits::trimEnd(video, id, to, 40); });
    };
    const auto slip = [](double to, double length) {
        return after([&](auto& video, auto& id) { VideoEdits::slip(video, id, to, length); });
    };
    EXPECT_EQ(start(-4), "10-12 0-24 30-33 ");
    EXPECT_EQ(start(30), "10-12 23.9-24 30-33 ");
    EXPECT_EQ(end(50), "10-12 20-40 30-33 ");
    EXPECT_EQ(end(3), "10-12 20-20.1 30-33 ");
    EXPECT_EQ(slip(-1, 40), "10-12 0-4 30-33 ");
    EXPECT_EQ(slip(39, 40), "10-12 36-40 30-33 ");
    EXPECT_EQ(slip(5, 2), "10-12 0-4 30-33 ");
}

TEST(VideoEdits, anUnknownCutChangesNothing) {
    auto video = threeCuts();
    const auto before = video;
    const auto none = UUID::make();
    VideoEdits::trimStart(video, none, 0);
    VideoEdits::trimEnd(video, none, 99, 99);
    VideoEdits::slip(video, none, 0, 99);
    VideoEdits::roll(video, none, 11, 99);
    VideoEdits::move(video, none, 0);
    VideoEdits::remove(video, none);
    EXPECT_EQ(VideoEdits::takeOut(video, {{0, 99}}, none, 0.1), 0);
    VideoEdits::toggleMute(video, {none});
    EXPECT_EQ(video, before);
}

TEST(VideoEdits, movesBeforeTheCutThatStandsThere) {
    for (const auto& [from, to, expected] : {std::tuple{0u, 2, "20-24 10-12 30-33 "},
                                             {0, 3, "20-24 30-33 10-12 "},
                                             {0, 1, "10-12 20-24 30-33 "},
                                             {2, 0, "30-33 10-12 20-24 "},
                                             {1, 99, "10-12 30-33 20-24 "},
                                             {1, -9, "20-24 10-12 30-33 "}}) {
        auto video = threeCuts();
        VideoEdits::move(video, video.cuts[from].id, to);
        EXPECT_EQ(told(video), expected) << from << " to " << to;
    }
}

TEST(VideoEdits, removesEveryCutOfThatIdEvenWhenNamedByItself) {
    auto video = threeCuts();
    video.cuts.edit().push_back(video.cuts[0]);
    VideoEdits::remove(video, video.cuts[0].id);
    EXPECT_EQ(told(video), "20-24 30-33 ");
}

TEST(VideoEdits, takesQuietOut) {
    const std::tuple<std::vector<Stretch>, double, const char*, double> cases[] = {
        {{{22, 23}, {20.5, 21}}, 0.1, "20-20.5 21-22 23-24 ", 1.5},
        {{{22, 23}, {20.5, 21}}, 0.6, "21-22 23-24 ", 2},
        {{{22, 23}, {20.5, 21}}, 1, "21-22 23-24 ", 2}, // a piece of exactly the shortest stays
        {{{0, 21}, {20.5, 22}, {23, 99}}, 0.1, "22-23 ", 3},
        {{{20.5, 23}, {21, 22}}, 0.1, "20-20.5 23-24 ", 2.5}, // one within another
        {{{0, 99}}, 0.1, "20-24 ", 0},
        {{{24, 25}, {10, 20}}, 0.1, "20-24 ", 0},
        {{}, 5, "20-24 ", 0},
    };
    for (const auto& [quiet, shortest, left, removed] : cases) {
        auto video = threeCuts();
        EXPECT_DOUBLE_EQ(VideoEdits::takeOut(video, quiet, video.cuts[1].id, shortest), removed);
        EXPECT_EQ(told(video), std::string("10-12 ") + left + "30-33 ");
    }
}

TEST(VideoEdits, aSeamRollsWithinBothCutsAndNothingElseMoves) {
    const std::tuple<double, std::string> cases[] = {{23, "10-12 20-23 29-33 "},
                                                     {26, "10-12 20-26 32-33 "},
                                                     {-5, "10-12 20-20.1 26.1-33 "},
                                                     {98, "10-12 20-26.9 32.9-33 "},
                                                     {99, "10-12 20-25 31-33 "}};
    for (const auto& [to, expected] : cases) {
        const double source = to == 99 ? 25 : 100;
        EXPECT_EQ(after([&](auto& video, auto& cut) { VideoEdits::roll(video, cut, to, source); }), expected);
        EXPECT_EQ(after([&](auto& video, auto& cut) {
                      for (const double way : {to - 1, to + 1, to}) VideoEdits::roll(video, cut, way, source);
                  }),
                  expected)
            << "whichever way it went there";
    }
    EXPECT_EQ(after([](auto& video, auto&) { VideoEdits::roll(video, video.cuts[2].id, 40, 100); }), three);

    auto video = threeCuts();
    video.cuts.edit()[2] = Cut::generated("card", 1, {}, 3);
    VideoEdits::roll(video, video.cuts[1].id, 26, 100);
    EXPECT_EQ(told(video), "10-12 20-26 0-1 ") << "what is generated gets shorter";
    VideoEdits::roll(video, video.cuts[1].id, 21, 100);
    EXPECT_EQ(told(video), "10-12 20-21 0-6 ");
}

TEST(VideoEdits, cutsOfWhichOneSoundsAreAllTurnedOff) {
    auto video = threeCuts();
    video.cuts.edit()[0].muted = false;
    const auto muted = [&](std::initializer_list<std::size_t> which) {
        std::vector<UUID> named;
        for (const auto at : which) named.push_back(video.cuts[at].id);
        VideoEdits::toggleMute(video, named);
        std::string text;
        for (const auto& one : video.cuts) text += one.muted ? *one.muted ? "x" : "o" : "-";
        return text;
    };
    EXPECT_EQ(muted({1}), "ox-");
    EXPECT_EQ(muted({2, 1}), "oxx");
    EXPECT_EQ(muted({0, 1}), "xxx");
    EXPECT_EQ(muted({2, 0}), "-x-");
    EXPECT_EQ(muted({}), "-x-");
}
