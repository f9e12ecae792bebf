#include "app/editor/commands/IdeaCommands.h"
#include "tests/editor/Lines.h"

using namespace murbo;

namespace {

void addIdeas(Lines& lines) {
    lines.editor().apply([](Project& project) {
        const auto source = project.sources[0].id;
        project.ideas.emplace().edit() = {
            {.title = "One", .cuts = {{.source = source, .start = 21, .end = 24}, {.start = 0, .end = 1}}},
            {.title = "Two", .cuts = {{.start = 0, .end = 1}}}};
    });
}

}

TEST(IdeaCommands, anIdeaBecomesAVideo) {
    Lines lines;
    addIdeas(lines);
    const auto cut = (*lines.project().ideas)[0].cuts[0].id;
    EXPECT_EQ(lines(R"(["makeVideo","idea 1"])"), stepped("Make Video"));
    const auto& video = lines.project().videos[0];
    EXPECT_NE(video.cuts[0].id, cut) << "undone and made again, it is another";
    EXPECT_EQ(video.title, "One");
    EXPECT_EQ(video.cuts.size(), 1u) << "footage that is gone is left out";
    EXPECT_TRUE(video.runs->contains("ideas"));
    EXPECT_EQ(lines.editor().openVideo(), video.id);
    EXPECT_EQ(lines.project().ideas->size(), 1u) << "it waits no longer";
    EXPECT_EQ(lines(R"(["makeVideo","idea 1"])"), did("The footage of that idea is gone from the project."));
    EXPECT_FALSE(IdeaCommands::makeVideo(lines.editor(), UUID::make()));
    EXPECT_EQ(lines.editor().toast(), "The idea is gone.");
    lines(R"(["undo"])");
    EXPECT_EQ(lines.project().ideas->size(), 2u);
}

TEST(IdeaCommands, anIdeaIsThrownAway) {
    Lines lines;
    addIdeas(lines);
    EXPECT_EQ(lines(R"(["throwAway","idea 2"])"), stepped("Throw Away Idea"));
    EXPECT_EQ(lines.project().ideas->size(), 1u);
    EXPECT_EQ(lines(R"(["throwAway","idea 2"])"),
              R"({"ok":false,"error":"“idea” is not right: “idea 2” is not an idea of this project."})");
}
