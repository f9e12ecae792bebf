#include "core/model/Project.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(Project, findsASourceAndWhatIsSaidInIt) {
    Project project;
    project.sources.edit() = {{.path = "/a.mp4"}, {.path = "/b.mp4"}};
    const UUID second = project.sources[1].id;
    project.transcripts[second].lines.edit() = {{.text = "hello"}};
    EXPECT_EQ(project.source(second)->path, "/b.mp4");
    EXPECT_EQ(project.source(UUID::make()), nullptr);
    EXPECT_EQ(project.transcript(second).lines[0].text, "hello");
    EXPECT_TRUE(project.transcript(project.sources[0].id).lines->empty());
}
