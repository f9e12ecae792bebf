#include "app/desktop/timeline/SpokenTimes.h"
#include "core/model/edits/ProjectOperations.h"

#include <random>

#include <gtest/gtest.h>

using namespace murbo;

TEST(SpokenTimes, findsTheQuietThatTheCommandTakesOut) {
    std::mt19937 random(7);
    const auto upTo = [&](double most) { return std::uniform_real_distribution(0.0, most)(random); };
    SpokenTimes spoken;
    for (int round = 0; round < 60; ++round) {
        Project project;
        const auto source = UUID::make();
        auto& lines = project.transcripts[source].lines.edit();
        for (int at = 0; at < 40; ++at) {
            const double start = upTo(100);
            lines.push_back({.start = start, .end = start + upTo(at % 7 == 0 ? 30 : 3), .text = "words"});
            if (at % 9 == 0) lines.back().gone = true;
        }
        for (int range = 0; range < 20; ++range) {
            const double from = upTo(100);
            const Stretch part{from, from + upTo(40)};
            EXPECT_EQ(spoken.quiet(project, source, part, 1),
                      ProjectOperations::quiet(project, source, part, 1));
        }
        lines.pop_back();
        project.transcripts[source].lines =
            List<Line>(std::vector<Line>{{.start = 5, .end = 6, .text = "one"}});
        EXPECT_EQ(spoken.quiet(project, source, {0, 10}, 1), (std::vector<Stretch>{{0, 5}, {6, 10}}))
            << "other lines are looked at anew";
        project.transcripts[source].lines = List<Line>();
        EXPECT_TRUE(spoken.quiet(project, source, {0, 10}, 1).empty()) << "nobody knows who speaks";
    }
}
