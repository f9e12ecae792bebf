#include "app/editor/commands/FootageAICommands.h"
#include "core/model/package/Activity.h"
#include "tests/MadeMedia.h"
#include "tests/editor/Asking.h"

using namespace murbo;

namespace {

using json = nlohmann::json;

json summary(const char* clip, const char* keyLine) {
    return {{"clip", clip}, {"title", "T"}, {"summary", "S"}, {"key_line", keyLine}};
}

}

TEST(FootageAICommands, whatIsGoneOrElsewhereByNowIsLeftOut) {
    Asking lines;
    lines.editor().apply([](Project& project) {
        project.clips.edit().push_back(
            {.number = 4, .source = project.sources[0].id, .start = 30, .end = 35});
    });
    lines.model.answers(json{{"clips",
                              {summary("C01", "C01.01"), summary("C02", "C02.01"), summary("C03", "C03.01"),
                               summary("C04", "C04.01")}}});
    lines.meanwhile("Change", [](Project& project) {
        auto& clips = project.clips.edit();
        clips.pop_back();
        clips[0].end = clips[1].start = 45; // the first has the second one's first line now
        auto& said = project.transcripts.begin()->second.lines.edit();
        said.erase(said.begin());
    });
    std::vector<UUID> asked;
    for (const auto& clip : lines.project().clips) asked.push_back(clip.id);
    const auto outcome = FootageAICommands::describeClips(lines.editor(), asked);
    EXPECT_EQ(lines(R"(["closeDrag"])"), did("Described 3 clips", "Describe Clips"));
    EXPECT_THAT(outcome->said, testing::ElementsAre("Left out: C04 is gone.", "Described 3 clips"));
    std::vector<std::optional<UUID>> keys;
    for (const auto& clip : lines.project().clips) keys.push_back(clip.summary.value().keyLine);
    const auto& said = lines.project().transcripts.begin()->second.lines;
    EXPECT_THAT(keys, testing::ElementsAre(std::nullopt, std::nullopt, said[7].id));
}

TEST(FootageAICommands, aLineThatWasTypedMeanwhileStays) {
    Asking lines;
    OwnerAsked asked(lines.editor(), true);
    lines.model.answers(json{{"lines",
                              {{{"line", "C01.01"}, {"text", "Line number 9"}},
                               {{"line", "C01.02"}, {"text", "Line number 8"}}}}});
    lines.meanwhile(
        "Type", [](Project& project) { project.transcripts.begin()->second.lines.edit()[0].text = "typed"; });
    const auto outcome = FootageAICommands::fixWords(lines.editor(), {lines.project().clips[0].id});
    EXPECT_EQ(lines(R"(["closeDrag"])"), did("Corrected 1 line", "Fix Words"));
    EXPECT_EQ(asked.title, "Fix Words");
    EXPECT_THAT(outcome->said,
                testing::ElementsAre("Left out: 1 line changed meanwhile.", "Corrected 1 line"));
    EXPECT_EQ(lines.project().transcripts.begin()->second.lines[0].text, "typed");
}

TEST(FootageAICommands, whoStopsABatchStopsTheRun) {
    Asking lines;
    lines.editor().apply([](Project& project) {
        for (std::size_t at : {0, 1}) project.clips.edit()[at].end += 1990; // three batches
    });
    lines.model.answers(json{{"clips", {summary("C01", "C01.01")}}});
    lines.model.sends("");
    int answered = 0;
    lines.model.beforeAnswer = [&] {
        if (++answered < 2) return;
        QMetaObject::invokeMethod(
            &lines.editor(), [&] { lines.editor().work.cancel(); }, Qt::QueuedConnection);
    };
    lines(R"(["describeClips",["C01","C02","C03"]])");
    EXPECT_EQ(lines.model.bodies().size(), 2u);
    EXPECT_TRUE(lines.project().clips[0].summary) << "what was finished stays";
    const auto log = Activity::read(lines.package());
    ASSERT_EQ(log.size(), 2u);
    EXPECT_EQ(log[1].state, "stopped");
}

TEST(FootageAICommands, aNoteIsWrittenFromFrames) {
    Asking lines;
    if (!made::canMake()) GTEST_SKIP() << "There is no ffmpeg here.";
    const auto movie =
        made::file("rec.mp4", "-f lavfi -i testsrc2=s=1600x900:r=25:d=2 -c:v libx264 -movflags +faststart");
    lines.editor().apply([&](Project& project) { project.sources.edit()[0].path = movie; });
    lines(R"(["set","heldSource","rec.mp4"])");
    EXPECT_EQ(lines(R"(["notesFromFrames"])"), did("Mark a range in the source viewer first"));
    lines(R"(["set","range",[0,2]])");
    OwnerAsked asked(lines.editor(), true);
    lines(R"(["set","heldSource","cam.mp4"])");
    EXPECT_EQ(lines(R"(["notesFromFrames"])"), did("There is no file “cam.mp4”."));
    lines(R"(["set","heldSource","rec.mp4"])");
    lines.model.answers(json{{"note", "A test picture\nmoves."}});
    EXPECT_EQ(lines(R"(["notesFromFrames"])"), did("A test picture moves.", "Notes from Frames"));
    EXPECT_EQ(asked.title, "Notes from Frames");
    EXPECT_THAT(asked.words, testing::EndsWith(" One picture of the footage leaves this computer."));
    const auto content = lines.model.bodies()[0]["messages"][1]["content"];
    ASSERT_EQ(content.size(), 2u);
    EXPECT_THAT(content[1]["image_url"]["url"].get<std::string>(),
                testing::StartsWith("data:image/jpeg;base64,/9j/"));
    const auto& notes = lines.project().transcripts.at(lines.project().sources[0].id).notes;
    ASSERT_EQ(notes.size(), 1u);
    EXPECT_EQ(notes[0].text, "A test picture moves.");
    EXPECT_EQ(contentsOf(lines.package() / "activity.jsonl").find("base64"), std::string::npos);
    const auto cut = lines.folder / "cut.mp4"; // its head says of pictures that are not there
    std::filesystem::copy_file(movie, cut);
    std::filesystem::resize_file(cut, 4000);
    lines.editor().apply([&](Project& project) { project.sources.edit()[0].path = cut; });
    EXPECT_EQ(lines(R"(["notesFromFrames"])"), did("No picture of that stretch could be read."));
    EXPECT_EQ(lines.model.bodies().size(), 1u);
}
