#include "core/model/Times.h"
#include "core/render/VideoComposition.h"
#include "platform/base/Problem.h"
#include "tests/TemporaryFolder.h"
#include "tests/render/Samples.h"

#include <limits>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace murbo {
namespace {

using samples::Stretch;

VideoComposition composed(const std::vector<Stretch>& stretches, double rate,
                          const std::set<UUID>& missing = {}) {
    const auto project = samples::project({"/nowhere/a.mp4", "/nowhere/b.mp4"});
    return VideoComposition::make(samples::video(project, stretches), project, missing, "", {}, rate);
}

TEST(VideoComposition, everyCutHasTheFramesThatFallInIt) {
    struct Case {
        std::vector<Stretch> cuts;
        double rate;
        std::vector<std::int64_t> ends;
    };
    const std::vector<Case> cases{
        {{}, 30, {}},
        {{{0, 5, 10}}, 30, {150}},
        {{{0, 0, 1}, {0, 3, 4}}, 29.97, {30, 60}},
        {{{0, 0, 0.1}, {0, 1, 1.1}, {0, 2, 2.1}}, 30, {3, 6, 9}}, // 0.1 + 0.1 + 0.1 is a little above 0.3
        {{{0, 0, 0.35}, {0, 1, 1.35}}, 10, {4, 7}},
        {{{0, 0, 0.01}, {0, 1, 1.01}, {0, 2, 3}}, 25, {1, 1, 26}}, // one too short for a frame
        {{{0, 2, 1}, {0, 0, 1}}, 10, {0, 10}},                     // its end before its start
    };
    for (const auto& [cuts, rate, ends] : cases) {
        const auto composition = composed(cuts, rate);
        std::vector<std::int64_t> found;
        for (const auto& segment : composition.segments) found.push_back(segment.endFrame);
        EXPECT_EQ(found, ends) << cuts.size() << " cuts at " << rate;
        EXPECT_EQ(composition.frameCount(), ends.empty() ? 0 : ends.back());
    }
}

TEST(VideoComposition, nothingDriftsOverManyCuts) {
    const int cuts = 36000; // ten hours of cuts of a second, 30 frames each
    const auto composition = composed(std::vector<Stretch>(cuts, {0, 7.7, 8.7}), 30);
    ASSERT_EQ(composition.frameCount(), cuts * 30);
    for (const std::int64_t frame : {0, 29, 30, 31, 539999, 540000, 1079999}) {
        const auto moment = composition.moment(frame);
        EXPECT_EQ(moment.segment, static_cast<std::size_t>(frame / 30));
        EXPECT_NEAR(moment.time, static_cast<double>(frame) / 30, 1e-6);
        EXPECT_NEAR(moment.at, 7.7 + static_cast<double>(frame % 30) / 30, Times::tick / 2 + 1e-6);
        EXPECT_GE(moment.time, composition.segments[moment.segment].start);
    }
}

TEST(VideoComposition, aCutWithoutFootageKeepsItsTime) {
    const auto project = samples::project({"/nowhere/a.mp4", "/nowhere/b.mp4"});
    auto video = samples::video(project, {{0, 1, 2}, {1, 1, 2}});
    video.cuts.edit().push_back(Cut::generated("title", 1, std::nullopt, 2));
    const auto composition =
        VideoComposition::make(video, project, {project.sources[1].id}, "Own", "/a.mbproj", std::nullopt);
    EXPECT_EQ(composition.box->plan()->fonts, "Own");
    EXPECT_EQ(composition.box->plan()->project, "/a.mbproj");
    ASSERT_EQ(composition.segments.size(), 3U);
    EXPECT_EQ(composition.segments[0].file, "/nowhere/a.mp4");
    EXPECT_EQ(composition.segments[0].source, project.sources[0].id);
    EXPECT_TRUE(composition.segments[1].file.empty());
    EXPECT_FALSE(composition.segments[1].source);
    EXPECT_TRUE(composition.segments[2].file.empty());
    EXPECT_EQ(composition.frameCount(), 120);
}

TEST(VideoComposition, theFootageDecidesTheRate) {
    const TemporaryFolder folder;
    samples::writeNumbered(folder / "24.mp4", 12, 24);
    samples::writeNumbered(folder / "50.mp4", 12, 50);
    samples::writeNumbered(folder / "120.mp4", 12, 120);
    const auto project =
        samples::project({folder / "24.mp4", folder / "50.mp4", folder / "120.mp4", folder / "none.mp4"});
    const auto rate = [&](const std::vector<Stretch>& cuts, const std::set<UUID>& missing = {}) {
        return VideoComposition::sourceRate(samples::video(project, cuts), project, missing);
    };
    EXPECT_EQ(rate({}), 30);
    EXPECT_EQ(rate({{3, 0, 1}}), 30);
    EXPECT_EQ(rate({{0, 0, 1}}), 24);
    EXPECT_EQ(rate({{0, 0, 1}, {1, 0, 1}, {3, 0, 1}}), 50);
    EXPECT_EQ(rate({{2, 0, 1}}), 60);
    EXPECT_EQ(rate({{0, 0, 1}, {1, 0, 1}}, {project.sources[1].id}), 24);
}

TEST(VideoComposition, whatNoMovieCanBeIsRefused) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    for (const double rate : {0.0, 0.4, -30.0, 241.0, 1e300, infinity, std::nan("")}) {
        EXPECT_THROW(composed({{0, 0, 1}}, rate), Problem) << rate;
    }
    EXPECT_EQ(composed({{0, 0, 1}}, 240.4).frameCount(), 240);
    for (const double end : {1e7, 1e300, infinity}) EXPECT_THROW(composed({{0, 0, end}}, 30), Problem) << end;
}

}
}
