#include "core/intake/Clips.h"
#include "core/model/Project.h"
#include "platform/base/Problem.h"

#include <algorithm>
#include <limits>
#include <random>

#include <fmt/format.h>
#include <gmock/gmock.h>

using namespace murbo;
using testing::ElementsAre;

namespace {

const UUID stream = UUID::make(), other = UUID::make();
constexpr double none = std::numeric_limits<double>::quiet_NaN();

Project projectWith(double length) {
    Project project;
    project.sources.edit().push_back(Source{.id = stream, .length = length});
    return project;
}

/// "number start-end [marks]" of each clip, in project order.
std::vector<std::string> told(const Project& project) {
    std::vector<std::string> result;
    for (const auto& clip : project.clips) {
        result.push_back(fmt::format("{} {:.0f}-{:.0f}", clip.tag(), clip.start, clip.end));
        for (const double mark : clip.marks) result.back() += fmt::format(" {:.0f}", mark);
    }
    return result;
}

}

TEST(Clips, reachAroundTheirMarksAndShareWhereTheyTouch) {
    const std::tuple<std::vector<double>, double, std::vector<std::string>> cases[] = {
        {{0}, 1000, {"C01 0-60 0"}},
        {{1000}, 1000, {"C01 850-1000 1000"}},
        {{1100}, 1000, {"C01 950-1000 1100"}}, // the mark lies behind the clip's end
        {{1150}, 1000, {}},
        {{-59}, 1000, {"C01 0-1 -59"}},
        {{-60}, 1000, {}},
        {{none, 1 / 0.0, -1 / 0.0}, 1000, {}},
        {{10}, none, {}},
        {{10}, 0, {}},
        {{310, 300}, 1000, {"C01 150-370 300 310"}},
        {{300, 300}, 1000, {"C01 150-360 300 300"}},
        {{200, 410}, 1000, {"C01 50-470 200 410"}},
        {{3000, 700, 2000}, 5000, {"C01 550-760 700", "C02 1850-2060 2000", "C03 2850-3060 3000"}},
        {{200, 410.01}, 1000, {"C01 50-260 200", "C02 260-470 410"}},
    };
    for (const auto& [marks, length, clips] : cases) {
        auto project = projectWith(length);
        Clips::addAround(project, marks, stream);
        EXPECT_EQ(told(project), clips);
    }
    auto full = projectWith(1000);
    full.lastClip = std::numeric_limits<std::int64_t>::max();
    EXPECT_THROW(Clips::addAround(full, {500}, stream), Problem) << "numbers never run over";
}

TEST(Clips, oneThatGrowsTakesInItsNeighboursAndLosesItsSummary) {
    auto project = projectWith(5000);
    project.clips.edit() = {
        Clip{.number = 1, .source = stream, .start = 1000, .end = 1100},
        Clip{.number = 2, .source = other, .start = 1000, .end = 1100},
        Clip{.number = 3, .source = stream, .start = 700, .end = 900, .name = "kept"},
    };
    for (auto& clip : project.clips.edit()) clip.summary = Clip::Summary{"Title", "Summary"};
    project.lastClip = 3;
    // The window 850-1060 meets C01 first; C03 begins earlier, so it is the one that stays.
    const auto ids = Clips::addAround(project, {1000}, stream);
    EXPECT_THAT(told(project), ElementsAre("C02 1000-1100", "C03 700-1100 1000"));
    EXPECT_EQ(project.clips[1].name, "kept");
    EXPECT_FALSE(project.clips[1].summary);
    EXPECT_TRUE(project.clips[0].summary);
    EXPECT_THAT(ids, ElementsAre(project.clips[0].id)); // by its old place in the list
    EXPECT_EQ(project.lastClip, 3);
}

TEST(Clips, thatExactlyTouchBecomeOneWhenOneOfThemGrows) {
    auto project = projectWith(5000);
    project.clips.edit() = {Clip{.number = 1, .source = stream, .start = 100, .end = 300},
                            Clip{.number = 2, .source = stream, .start = 300, .end = 400},
                            Clip{.number = 3, .source = stream, .start = 100, .end = 120}};
    const auto ids = Clips::addAround(project, {500}, stream);
    EXPECT_THAT(told(project), ElementsAre("C01 100-560 500"));
    EXPECT_THAT(ids, ElementsAre(project.clips[0].id));
}

TEST(Clips, aPlaceBehindTheEndAfterMergingIsNoFault) {
    auto project = projectWith(5000);
    project.clips.edit() = {{.number = 1, .source = stream, .start = 0, .end = 100},
                            {.number = 2, .source = stream, .start = 50, .end = 200},
                            {.number = 3, .source = stream, .start = 300, .end = 400}};
    const auto ids = Clips::addAround(project, {500}, stream); // meets the third clip only
    EXPECT_THAT(told(project), ElementsAre("C01 0-200", "C03 300-560 500"));
    EXPECT_THAT(ids, ElementsAre(project.clips[1].id));
}

TEST(Clips, holdEveryMarkAndCoverWhatWasThereAndTheWindowsAlone) {
    std::mt19937 random(7);
    const auto below = [&](unsigned max) { return double(random() % max); };
    const auto cover = [](std::vector<bool>& seconds, double from, double to) {
        for (double at = std::max(from, 0.0); at < to; ++at) seconds[std::size_t(at)] = true;
    };
    for (int round = 0; round < 400; round++) {
        auto project = projectWith(6000);
        std::vector<bool> expected(6500), covered(6500);
        std::vector<double> marks, kept;
        for (double left = below(5); left > 0; left--) {
            const double start = below(5500), end = start + 1 + below(400);
            const UUID& source = below(2) > 0 ? stream : other;
            project.clips.edit().push_back(
                {.number = ++project.lastClip, .source = source, .start = start, .end = end});
            if (source == stream) cover(expected, start, end);
        }
        for (double left = below(40); left > 0; left--) {
            const double mark = below(6300) - 100;
            cover(expected, mark - 150, std::min(mark + 60, 6000.0));
            if (mark > -60 && mark < 6150) marks.push_back(mark);
        }
        Clips::addAround(project, marks, stream);
        for (const auto& clip : project.clips) {
            kept.insert(kept.end(), clip.marks.begin(), clip.marks.end());
            if (clip.source == stream) cover(covered, clip.start, clip.end);
        }
        std::ranges::sort(marks);
        std::ranges::sort(kept);
        EXPECT_EQ(kept, marks) << round;
        EXPECT_EQ(covered, expected) << round;
    }
}

TEST(Clips, manyMarksAreTakenInAMoment) {
    std::vector<double> marks;
    for (int mark = 0; mark < 20'000; mark++) marks.push_back(mark * 105.0);      // each meets the one before
    for (int mark = 0; mark < 3'000; mark++) marks.push_back(3e6 + mark * 211.0); // each stands alone
    auto project = projectWith(1e9);
    EXPECT_EQ(Clips::addAround(project, marks, stream).size(), 3'001);
    EXPECT_EQ(project.clips.size(), 3'001);
}
