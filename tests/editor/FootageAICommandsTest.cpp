#include "app/editor/commands/FootageAICommands.h"
#include "core/model/package/Activity.h"
#include "tests/MadeMedia.h"
#include "tests/editor/Asking.h"

using namespace murbo;

namespace {

using json = nlohmann::json;

json described(const char* clip) {
    return {{"clips", {{{"clip", clip}, {"title", "T"}, {"summary", "S"}, {"key_line", "C01.01"}}}}};
}

}

TEST(FootageAICommands, describeOnlyClipsThatAreStillThere) {
    Asking lines;
    lines.model.answers(json{{"clips",
                              {{{"clip", "C01"}, {"title", "T"}, {"summary", "S"}, {"key_line", "C01.01"}},
                               {{"clip", "C02"}, {"title", "T"}, {"summary", "S"}}}}});
    lines.meanwhile("Change", [](Project& project) {
        project.clips.edit().erase(project.clips.begin() + 1);
        auto& said = project.transcripts.begin()->second.lines.edit();
        said.erase(said.begin());
    });
    lines(R"(["describeClips",["C01","C02"]])");
    EXPECT_EQ(lines.editor().toast(), "Described 1 clip");
    EXPECT_EQ(lines.project().clips[0].summary->title, "T");
    EXPECT_FALSE(lines.project().clips[0].summary->keyLine) << "that line is gone";
}

TEST(FootageAICommands, aKeyLineThatLiesInAnotherClipByNowIsNone) {
    Asking lines;
    lines.model.answers(described("C01"));
    lines.meanwhile("Change", [](Project& project) {
        project.clips.edit()[0].start = 26;
        std::tie(project.clips.edit()[1].start, project.clips.edit()[1].end) = std::pair(20, 25);
    });
    lines(R"(["describeClips",["C01"]])");
    ASSERT_TRUE(lines.project().clips[0].summary);
    EXPECT_FALSE(lines.project().clips[0].summary->keyLine);
}

TEST(FootageAICommands, whoStopsABatchStopsTheRun) {
    Asking lines;
    lines.editor().apply([](Project& project) {
        for (std::size_t at : {0, 1}) project.clips.edit()[at].end += 1990; // three batches
    });
    lines.model.answers(described("C01"));
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

TEST(FootageAICommands, sayWhenNothingIsSaid) {
    Asking lines;
    lines.editor().apply([](Project& project) { project.transcripts.clear(); });
    EXPECT_EQ(lines(R"(["describeClips",["C01","C02"]])"),
              did("Transcribe the clips first: nothing is said in them yet"));
    EXPECT_EQ(lines(R"(["fixWords",["C01"]])"), did("Transcribe the clip first: nothing is said in it yet"));
}

TEST(FootageAICommands, aNoteIsWrittenFromFrames) {
    Asking lines;
    if (!made::canMake()) GTEST_SKIP() << "There is no ffmpeg here.";
    const auto movie = made::file("rec.mp4", "-f lavfi -i testsrc2=s=1600x900:r=25:d=2 -c:v libx264");
    lines.editor().apply([&](Project& project) { project.sources.edit()[0].path = movie; });
    lines(R"(["set","heldSource","rec.mp4"])");
    EXPECT_EQ(lines(R"(["notesFromFrames"])"), did("Mark a range in the source viewer first"));
    lines(R"(["set","range",[0,2]])");
    OwnerAsked asked(lines.editor(), true);
    lines.model.answers(json{{"note", "A test picture\nmoves."}});
    EXPECT_EQ(lines(R"(["notesFromFrames"])"), did("A test picture moves.", "Notes from Frames"));
    EXPECT_THAT(asked.words, testing::EndsWith(" One picture of the footage leaves this computer."));
    const auto content = lines.model.bodies()[0]["messages"][1]["content"];
    ASSERT_EQ(content.size(), 2u);
    EXPECT_THAT(content[1]["image_url"]["url"].get<std::string>(),
                testing::StartsWith("data:image/jpeg;base64,/9j/"));
    const auto& notes = lines.project().transcripts.at(lines.project().sources[0].id).notes;
    ASSERT_EQ(notes.size(), 1u);
    EXPECT_EQ(notes[0].text, "A test picture moves.");
    EXPECT_EQ(contentsOf(lines.package() / "activity.jsonl").find("base64"), std::string::npos);
}
