#include "tests/paid/PaidProject.h"

using namespace murbo;

using json = nlohmann::json;
using VideoTasks = PaidProject;

TEST_F(VideoTasks, ideasComeAfterThoseThatWait) {
    auto before = project();
    before.ideas.emplace().edit().push_back({.title = "Waiting", .hook = "h", .why = "w"});
    ProjectPackage::write(before, package, nullptr);
    model.answers(json{{"read", {"C01", "C02"}}});
    model.answers(
        json{{"ideas",
              {{{"title", "Two falls"}, {"cuts", cutsOf({{"C01.01", "C01.03"}, {"C02.01", "C02.02"}})}},
               {{"title", "Of nothing"}, {"cuts", cutsOf({{"C03.01", "C03.02"}})}},
               {{"hook", "only a hook"}, {"cuts", cutsOf({{"C01.03", "C01.03"}})}}}}});
    EXPECT_EQ(run({"--ideas", package, "the falls", "--aspect", "16:9"}),
              printed("2 ideas\nTwo falls\nUntitled"));
    EXPECT_EQ(logged(), "Find ideas: reading, done; Find ideas: reading on (1), done");
    const auto ideas = *project().ideas;
    ASSERT_EQ(ideas.size(), 3u);
    EXPECT_EQ(ideas[0].title, "Waiting");
    EXPECT_EQ(ideas[1].cuts.size(), 2u);
    EXPECT_EQ(ideas[1].instruction, "the falls");
    EXPECT_EQ(ideas[1].run->with, "anthropic/claude-sonnet-5.5");
    EXPECT_EQ(lastStep(), "Find Ideas");
    EXPECT_EQ(log()[0].request, model.bodies()[0]["messages"][1]["content"]);
    EXPECT_EQ(log()[1].request, model.bodies()[1]["messages"][3]["content"]);
}

TEST_F(VideoTasks, theFirstWordsOfIdeas) {
    model.answers(json{{"ideas", json::array()}});
    EXPECT_EQ(run({"--ideas", package, "the falls", "--aspect", "16:9"}),
              failure("No ideas came back that hold up; Activity has the answer"));
    EXPECT_EQ(model.lastWords(), expected("ideas"));
    EXPECT_EQ(model.bodies()[0]["max_tokens"], 12'000);
    EXPECT_EQ(logged(), "Find ideas: reading, done");
}

TEST_F(VideoTasks, aVideoIsCutToWords) {
    model.says(R"({"read":["c02 ","C9"]})");
    model.answers(json{{"title", "Down she goes"},
                       {"cuts", cutsOf({{"C02.03", "C02.01"}, {"c2.1", "C02.02"}, {"C01.01", "C01.02"}})},
                       {"note", "The second fall."}});
    EXPECT_EQ(run({"--cut", package, "the fall, tight"}),
              printed("The second fall.\nV2 “Down she goes”, 0:05, 1 cut."));
    EXPECT_EQ(model.lastWords(), expected("cut-read"));
    const auto made = project().videos.back();
    EXPECT_EQ(made.aspect, Video::Aspect::vertical);
    ASSERT_EQ(made.cuts.size(), 1u) << "only the lines that were read count";
    EXPECT_EQ(made.cuts[0].start, 201);
    EXPECT_EQ(made.cuts[0].role, "payoff");
    EXPECT_TRUE(made.runs->contains("cutToInstruction"));
    EXPECT_EQ(lastStep(), "Cut to Instruction");
    EXPECT_EQ(logged(), "Cut to instruction: reading, done; Cut to instruction: reading on (1), done");
}

TEST_F(VideoTasks, theFirstWordsOfARevision) {
    model.answers(json{{"cuts", json::array()}, {"note", "It is fine as it is."}});
    const auto before = projectFile();
    EXPECT_EQ(run({"--revise", package, "V1", "end on the reaction"}), failure("It is fine as it is."));
    EXPECT_EQ(model.lastWords(), expected("revise"));
    EXPECT_EQ(projectFile(), before);
}
