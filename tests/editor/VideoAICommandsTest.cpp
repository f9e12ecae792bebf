#include "app/editor/commands/VideoAICommands.h"
#include "core/playbooks/Playbooks.h"
#include "tests/editor/Asking.h"

using namespace murbo;
using testing::ElementsAre, testing::HasSubstr;

namespace {

using json = nlohmann::json;

/// A session with a video V1 of C01.01 and C02.01.
struct WithVideo : Asking {
    WithVideo() {
        editor().apply([](Project& project) {
            const auto source = project.sources[0].id;
            project.videos.edit().push_back(
                {.number = 1,
                 .title = "Falls",
                 .cuts = std::vector<Cut>{{.source = source, .start = 21, .end = 24},
                                          {.source = source, .start = 41, .end = 44}}});
            project.lastVideo = 1;
        });
        editor().openOnTimeline(project().videos[0].id);
    }
};
void removeSecondClip(Project& project) {
    project.clips.edit().erase(project.clips.begin() + 1);
}

}

TEST(VideoAICommands, aLookFindsItsLinesWhereTheyAreNow) {
    WithVideo lines;
    lines.model.answers(
        json{{"big", {"C01.01"}}, {"overlays", {{{"playbook", "stock.hearts"}, {"at", "C01.01"}}}}});
    const auto meant = lines.project().transcripts.begin()->second.lines[0].id;
    lines.meanwhile("Add Line", [](Project& project) {
        auto& said = project.transcripts.begin()->second.lines.edit();
        said.insert(said.begin(), {.start = 20.1, .end = 20.9, .text = "Before"});
    });
    lines(R"(["lookByAI"])");
    const auto& look = *lines.project().videos[0].look;
    EXPECT_EQ(look.captions.lines[0].line, meant);
    ASSERT_EQ(look.overlays.size(), 1u);
    EXPECT_TRUE(Playbooks::copy("stock.hearts", look.overlays[0].version, lines.package())) << "it is kept";
}

TEST(VideoAICommands, anIdeaWithoutACutThatHoldsIsNone) {
    Asking lines;
    lines.editor().apply([](Project& project) { project.ideas = std::vector<Idea>{{.title = "Waiting"}}; });
    lines.model.answers(json{{"read", {"C01", "C02"}}});
    lines.model.answers(json{{"ideas",
                              {{{"title", "Gone"}, {"cuts", cutsOf({{"C02.01", "C02.01"}})}},
                               {{"title", "Holds"}, {"cuts", cutsOf({{"C01.01", "C01.01"}})}}}}});
    lines.meanwhile("Remove Clip", removeSecondClip);
    EXPECT_EQ(lines(R"(["findIdeas"," "])"),
              did("1 idea. Left out: 1 cut whose clip is gone.", "Find Ideas"));
    ASSERT_EQ(lines.project().ideas->size(), 2u) << "after the one that waited";
    EXPECT_EQ((*lines.project().ideas)[1].title, "Holds");
    EXPECT_FALSE((*lines.project().ideas)[1].instruction);
}

TEST(VideoAICommands, chosenClipsThatAreTooManyForARequestAreReadAsTheModelAsks) {
    Asking lines;
    lines.editor().apply([](Project& project) {
        for (auto& clip : project.clips.edit()) clip.end = clip.start + 1500;
    });
    lines.model.answers(json{{"read", {"C01"}}});
    lines.model.answers(json{{"title", "T"}, {"cuts", cutsOf({{"C01.01", "C01.01"}})}});
    lines(R"(["cutToInstruction","x",["C01","C02"]])");
    EXPECT_EQ(lines.project().videos.size(), 1u);
    EXPECT_THAT(lines.model.bodies()[0].dump(), testing::Not(HasSubstr("C01.02 [")));
}

TEST(VideoAICommands, cutsOfClipsThatAreGoneAreLeftOut) {
    Asking lines;
    lines.model.answers(json{{"read", {"C01", "C02"}}});
    lines.answersCuts({{"C01.01", "C01.01"}, {"C02.01", "C02.01"}});
    lines.meanwhile("Remove Clip", removeSecondClip);
    EXPECT_EQ(lines(R"(["cutToInstruction","x"])"),
              did("Left out: 1 cut whose clip is gone.", "Cut to Instruction"));
    EXPECT_EQ(lines.project().videos[0].cuts.size(), 1u);
    EXPECT_EQ(lines.editor().openVideo(), lines.project().videos[0].id);
}

TEST(VideoAICommands, whatIsAskedForWhileAJobRunsWaitsItsTurn) {
    Asking lines;
    std::vector<std::string> labels;
    QObject::connect(&lines.editor().work, &Work::labelChanged, [&] {
        if (lines.editor().work.label()) labels.push_back(*lines.editor().work.label());
    });
    lines.model.answers(json{{"read", {"C02", "C01"}}});
    lines.answersCuts({{"C01.01", "C01.01"}});
    lines.model.answers(json{{"ideas", json::array()}});
    OutcomeRef ideas;
    lines.meanwhile([&](Editor& editor) { ideas = VideoAICommands::findIdeas(editor, {}); });
    lines(R"(["cutToInstruction","x"])");
    EXPECT_THAT(labels, ElementsAre("Cut to instruction", "Cut to instruction: it asked to read C01, C02",
                                    "Find ideas"));
    EXPECT_EQ(lines.model.bodies().size(), 3u);
    EXPECT_TRUE(ideas->failed);
    EXPECT_EQ(ideas->failure, "No ideas came back that hold up; Activity has the answer");
    EXPECT_EQ(lines.editor().toast(), ideas->failure);
}

TEST(VideoAICommands, aFirstPassThatHadToWaitIsOfTheVideoThatItMade) {
    WithVideo lines;
    lines.editor().apply([](Project& project) {
        project.ideas.emplace().edit().push_back(
            {.title = "An idea", .cuts = {{.source = project.sources[0].id, .start = 21, .end = 29}}});
    });
    for (const auto* big : {"C02.01", "C01.02"}) lines.model.answers(json{{"big", {big}}});
    OutcomeRef pass;
    lines.meanwhile([&](Editor& editor) {
        pass = VideoAICommands::firstPassOf(editor, (*editor.project().ideas)[0].id);
        while (!pass->video && !pass->failed) QCoreApplication::processEvents();
        editor.openOnTimeline(editor.project().videos[0].id);
    });
    lines(R"(["lookByAI"])");
    ASSERT_EQ(lines.project().videos.size(), 2u);
    const auto& said = *lines.project().transcripts.begin()->second.lines;
    for (const std::size_t video : {0, 1}) {
        const auto& captions = lines.project().videos[video].look.value_or(Look()).captions.lines;
        ASSERT_EQ(captions.size(), 1u) << video;
        EXPECT_EQ(captions[0].line, said[video == 0 ? 4 : 1].id) << video;
    }
}
