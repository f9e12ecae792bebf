#include "core/mcp/ChangeTools.h"
#include "tests/mcp/Calling.h"

using namespace murbo;

using ChangeToolsTest = Calling;

TEST_F(ChangeToolsTest, describesAndFixes) {
    const auto described =
        call("describe_clips",
             R"({"clips": [{"clip": "c02", "title": "x", "summary": "y"}, {"clip": "C01", "title": "z"}]})");
    EXPECT_EQ(described.text, "Described C02. Left out: C01: it needs a title and a summary.");
    EXPECT_EQ(described.step, "Describe Clip");
    EXPECT_EQ(project.clips[1].runs->at("describeClips").by, murbo::Run::By::mcp);
    EXPECT_EQ(problem("describe_clips", R"({"clips": [{"title": "x"}]})"),
              "Nothing could be read: each entry needs a clip and a title.");
    const auto before = lines()[1];
    const auto fixed =
        call("fix_lines", R"({"lines": [{"line": "c1.2", "text": " too "}, {"line": "C01.03", "text": " "},
                                                       {"line": "C02.01", "text": "over here"}]})");
    EXPECT_EQ(fixed.text, "Fixed C01.02, C02.01.");
    EXPECT_EQ(fixed.step, "Fix Lines");
    EXPECT_EQ(lines()[1], (Line{.id = before.id, .start = 3, .end = 4, .text = "too"}));
    EXPECT_EQ(lines()[3].text, "over here") << "and the other one too";
    notes() = {{.start = 1, .end = 2, .text = "he opens the door"}};
    EXPECT_EQ(problem("fix_lines", R"({"lines": [{"line": "C01.n1", "text": "x"}]})"),
              "No line could be fixed: each needs the tag of a line that is there and its words.");
}

TEST_F(ChangeToolsTest, makesAndRevisesVideos) {
    const auto made = call(
        "make_video", R"({"title": " ", "aspect": "16:9", "cuts": [{"from": "C01.01", "to": "C01.03"}]})");
    EXPECT_EQ(made.text, "V2 “Untitled Video”, 0:05, 1 cuts.");
    EXPECT_EQ(made.step, "Make Video");
    EXPECT_EQ(made.looked, project.videos[1].id);
    EXPECT_EQ(project.videos[1].aspect, Video::Aspect::horizontal);
    EXPECT_EQ(project.videos[1].runs->at("cutToInstruction").by, murbo::Run::By::mcp);
    EXPECT_EQ(problem("make_video", R"({"title": "x", "cuts": [{"from": "C01.01", "to": "C02.01"}]})"),
              "No cut holds up: each needs a from and a to, lines that are there, in one clip.");

    video().cuts.edit()[0].start = 0.5; // the owner's trim
    EXPECT_EQ(
        text("set_cuts", R"({"video": "V1", "cuts": [{"from": "C01.01", "to": "C01.02", "role": "setup"}]})"),
        "V1 now has 1 cuts, 0:03.");
    EXPECT_EQ(video().cuts[0].start, 0.5);
    EXPECT_EQ(video().cuts[0].role, "setup");
    EXPECT_EQ(problem("set_cuts", R"({"video": "V1", "cuts": "all"})"),
              "No cut holds up, so V1 is left as it was.");

    EXPECT_EQ(text("rename_video", R"({"video": "V1", "title": "New"})"), "V1 is “New”.");
    for (const auto* bad : {R"({"video": "V1"})", R"({"video": "V1", "title": " \n"})"})
        EXPECT_EQ(problem("rename_video", bad), "Say the new title.");
}

TEST_F(ChangeToolsTest, aFixedLineIsNotedOnItsClipAlone) {
    const auto fixed =
        call("fix_lines", R"({"lines": [{"line": "C02.01", "text": "a"}, {"line": "c2.1", "text": "b"}]})");
    EXPECT_EQ(fixed.text, "Fixed C02.01.");
    EXPECT_EQ(fixed.step, "Fix Line");
    EXPECT_EQ(lines()[3].text, "b") << "the last word counts";
    EXPECT_EQ(project.clips[1].runs->at("fixWords").by, murbo::Run::By::mcp);
    EXPECT_FALSE(project.clips[0].runs);
}

TEST_F(ChangeToolsTest, ideasComeAfterThoseThatWait) {
    project.ideas.emplace().edit().push_back({.title = "Old"});
    const auto result =
        call("propose_ideas", R"({"ideas": [{"title": "A\nB", "hook": "h", "why": "w", "format": "list",
        "cuts": [{"from": "C01.01", "to": "C01.02"}]},
        {"title": "C", "hook": "", "why": "", "cuts": [{"from": "C01.01", "to": "C01.02"}]}]})");
    EXPECT_EQ(result.text, "The owner sees them in Project ▸ Ideas: A B, C.");
    EXPECT_EQ(result.step, "Propose Ideas");
    EXPECT_EQ(problem("propose_ideas", R"({"ideas": [{"title": "B"}]})"),
              "No idea had a cut that holds up: every cut needs a from and a to, lines that are there, in "
              "one clip.");
    ASSERT_EQ(project.ideas->size(), 3u);
    const auto& idea = (*project.ideas)[1];
    EXPECT_EQ(idea.hook + idea.why + idea.format.value_or(""), "hwlist");
    EXPECT_EQ(std::pair(idea.cuts[0].start, idea.cuts[0].end), std::pair(1.0, 4.0));
}

TEST_F(ChangeToolsTest, eachChangeNamesItsStepAndItsVideo) {
    addVideo("Second", {cut(1, 4)});
    const auto id = project.videos[1].id;
    const auto first = video();
    for (const auto& [tool, more, step] :
         {std::tuple{"set_cuts", R"("cuts": [{"from": "C02.01", "to": "C02.02"}])", "Revise Cuts"},
          {"rename_video", R"("title": "T")", "Rename Video"},
          {"set_shots", R"("shots": [{"at": "C02.01", "layout": "content"}])", "Frame by Claude"},
          {"set_captions", R"("hidden": ["C02.01"])", "Captions by Claude"},
          {"set_sounds", R"("sounds": [])", "Sounds by Claude"}}) {
        const auto result = call(tool, std::string(R"({"video": "v2", )") + more + "}");
        EXPECT_EQ(result.step, step);
        EXPECT_EQ(result.looked, id) << tool;
    }
    EXPECT_EQ(video(), first);
    const auto& second = project.videos[1];
    EXPECT_EQ(second.title, "T");
    EXPECT_EQ(second.runs->at("reviseCuts").by, murbo::Run::By::mcp);
    EXPECT_EQ(second.look->shots[0].layout, Shot::Layout::content);
    EXPECT_EQ(second.look->captions.lines[0].hidden, true);
}

TEST_F(ChangeToolsTest, anUnknownShapeIsUprightAndAGeneratedCutStays) {
    for (const std::string aspect : {" 1:1 ", "3:2"}) {
        const auto shape = aspect == "3:2" ? Video::Aspect::vertical : Video::Aspect::square;
        call("make_video",
             R"({"title": "x", "cuts": [{"from": "C01.01", "to": "C01.03"}], "aspect": ")" + aspect + "\"}");
        EXPECT_EQ(project.videos.back().aspect, shape) << aspect;
    }
    video().cuts.edit().insert(video().cuts.begin(),
                               Cut::generated("stock.generator.title", 1, std::nullopt, 2));
    call("set_cuts", R"({"video": "V1", "cuts": [{"from": "C02.01", "to": "C02.02"}]})");
    EXPECT_TRUE(video().cuts[0].generator);
    EXPECT_EQ(video().cuts.size(), 2u);
}
