#include "core/model/Tags.h"

#include <gtest/gtest.h>

namespace murbo {

/// A source with two clips that overlap, from 0 to 10 and from 8 to 20, and lines at these middles.
Project spoken(const std::vector<double>& middles) {
    Project project;
    project.sources.edit() = {{}};
    const UUID source = project.sources[0].id;
    project.clips.edit() = {{.number = 1, .source = source, .start = 0, .end = 10},
                            {.number = 2, .part = "a", .source = source, .start = 8, .end = 20}};
    for (const double middle : middles)
        project.transcripts[source].lines.edit().push_back({.start = middle - 1, .end = middle + 1});
    return project;
}

TEST(Tags, countLinesByTheirStartWithinTheClipOfTheirMiddle) {
    auto project = spoken({5, 3, 9, 30});
    const UUID source = project.sources[0].id;
    project.transcripts[source].notes.edit() = {{.start = 1, .end = 3}};
    const auto tags = Tags::on(source, project);
    const auto& lines = *project.transcripts[source].lines;
    EXPECT_EQ(tags.at(lines[0].id), "C01.02");
    EXPECT_EQ(tags.at(lines[1].id), "C01.01");
    EXPECT_EQ(tags.at(lines[2].id), "C02a.01") << "where clips overlap the later one names";
    EXPECT_FALSE(tags.contains(lines[3].id)) << "outside of every clip";
    EXPECT_EQ(tags.at(project.transcripts[source].notes[0].id), "C01.n1");
    EXPECT_TRUE(Tags::on(UUID::make(), project).empty());
}

}
