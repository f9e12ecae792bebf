#include "core/model/Tags.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(Tags, countLinesByTheirStartWithinTheClipOfTheirMiddle) {
    Project project;
    project.sources.edit() = {{}};
    const UUID source = project.sources[0].id;
    project.clips.edit() = {{.number = 5, .part = "b", .source = source, .start = 10, .end = 20},
                            {.number = 100, .source = source, .start = 40, .end = 50},
                            {.source = UUID::make(), .end = 100}};
    auto& transcript = project.transcripts[source];
    // The third and fourth of those in C05b begin together and keep their order.
    const std::tuple<double, double, const char*> cases[] = {
        {20, 20, "none"},    {10, 10, "C05b.02"}, {12, 30, "none"},   {12, 13, "C05b.03"},
        {12, 14, "C05b.04"}, {8, 14, "C05b.01"},  {44, 45, "C100.01"}};
    for (const auto& [start, end, _] : cases)
        transcript.lines.edit().push_back({.start = start, .end = end, .gone = start == 12});
    transcript.notes.edit() = {{.start = 13, .end = 13}};
    auto tags = Tags::on(source, project);
    for (std::size_t at = 0; at < std::size(cases); ++at) {
        const auto found = tags.find(transcript.lines[at].id);
        EXPECT_EQ(found == tags.end() ? "none" : found->second, std::get<2>(cases[at])) << at;
    }
    EXPECT_EQ(tags.at(transcript.notes[0].id), "C05b.n1");
    project.clips.edit()[1] = {.number = 2, .source = source, .start = 11, .end = 30};
    tags = Tags::on(source, project);
    EXPECT_EQ(tags.at(transcript.lines[3].id), "C02.03") << "where clips overlap the later one names";
    EXPECT_TRUE(Tags::on(UUID::make(), project).empty());
}
