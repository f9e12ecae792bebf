#include "core/intake/transcription/Transcripts.h"
#include "core/model/Project.h"

#include <gmock/gmock.h>

using namespace murbo;
using testing::ElementsAre;

TEST(Transcripts, linesAreReplacedByTheirMiddle) {
    Project project;
    const auto source = UUID::make();
    const auto line = [](double start, double end, const char* text) {
        return Line{.start = start, .end = end, .text = text};
    };
    Transcripts::replaceLines(
        project, source, 0, 100,
        {line(8, 10, "before"), line(9, 11, "first"), line(19, 21, "behind"), line(12, 13, "old")});
    project.transcripts[source].notes.edit().push_back(Note{.text = "stays"});
    Transcripts::replaceLines(project, source, 10, 20,
                              {line(15, 16, "two"), line(9.5, 16, "one"), line(15, 17, "three")});
    std::vector<std::string> texts;
    for (const auto& each : project.transcript(source).lines) texts.push_back(each.text);
    EXPECT_THAT(texts, ElementsAre("before", "one", "two", "three", "behind"));
    EXPECT_EQ(project.transcript(source).notes.size(), 1);
}
