#include "app/editor/commands/TranscribeCommands.h"
#include "core/model/package/Activity.h"
#include "tests/editor/TwoCuts.h"

using namespace murbo;

TEST(TranscribeCommands, stretchesAreAllClipsByTimeElseTheWholeSource) {
    Lines lines;
    lines.editor().change(
        "x", [](Project& project) { std::swap(project.clips.edit()[0], project.clips.edit()[2]); });
    const auto& sources = lines.project().sources;
    const auto stretch = [](const UUID& source, const char* rest) {
        return "[\"" + source.text() + "\"," + rest + "]";
    };
    EXPECT_EQ(
        lines(R"(["stretches",["cam.mp4","rec.mp4"]])"),
        gave("[" + stretch(sources[1].id, R"([0,30],"cam.mp4")") + "," +
             stretch(sources[0].id, R"([20,30],"C01")") + "," + stretch(sources[0].id, R"([40,50],"C02")") +
             "," + stretch(sources[0].id, R"([60,70],"C03")") + "]"));
    EXPECT_EQ(lines(R"(["stretches",[]])"), gave("[]"));
}

TEST(TranscribeCommands, theOwnerIsAskedWithThePrice) {
    Lines lines;
    OwnerAsked asked(lines.editor(), false);
    EXPECT_EQ(lines(R"(["transcribe",["C02"]])"), fine) << "not agreed to";
    EXPECT_EQ(asked.title + asked.button, "Transcribe C02 with Scribe?Transcribe");
    EXPECT_TRUE(asked.words.ends_with(
        ", from your OpenRouter key. The lines it replaces are those of this stretch."));
    const auto one = std::stod(asked.words.substr(7));
    lines(R"(["transcribe",["C01","C02","C03"]])");
    EXPECT_EQ(asked.title, "Transcribe 3 clips with Scribe?");
    EXPECT_TRUE(asked.words.ends_with("those of these clips."));
    EXPECT_NEAR(std::stod(asked.words.substr(7)), 3 * one, 0.0021);
    asked.agrees = true;
    EXPECT_EQ(lines(R"(["transcribe",["C02"]])"),
              did("Add your OpenRouter key in Settings ▸ AI to use Scribe"));
    asked.title.clear();
    EXPECT_EQ(lines(R"(["transcribe",[]])"), fine);
    EXPECT_EQ(asked.title, "");
}

TEST(TranscribeCommands, theHeldClipOrTheMarkedRangeOfTheHeldSource) {
    Lines lines;
    OwnerAsked asked(lines.editor(), false);
    EXPECT_EQ(lines(R"(["transcribeHeld"])"), did("Pick a clip in the browser first"));
    lines(R"(["set","heldSource","rec.mp4"])");
    EXPECT_EQ(lines(R"(["transcribeHeld"])"), did("Pick a clip in the browser first")) << "nothing is marked";
    lines(R"(["set","range",[0,100]])");
    EXPECT_EQ(lines(R"(["transcribeHeld"])"), fine);
    EXPECT_EQ(asked.title, "Transcribe rec.mp4 with Scribe?");
    const auto ofRange = asked.words;
    lines(R"(["set","heldClip","C03"])", R"(["transcribeHeld"])");
    EXPECT_EQ(asked.title, "Transcribe C03 with Scribe?");
    EXPECT_EQ(asked.words, ofRange) << "the range, not the clip";
    lines(R"(["set","range",null])", R"(["transcribeHeld"])");
    EXPECT_NE(asked.words, ofRange);
}

TEST(TranscribeCommands, theLanguageIsTheProjects) {
    Lines lines;
    EXPECT_EQ(lines(R"(["setLanguage","en"])"), stepped("Set Language"));
    EXPECT_EQ(lines.project().language, "en");
    EXPECT_EQ(lines(R"(["setLanguage"])"), stepped("Set Language"));
    EXPECT_FALSE(lines.project().language);
    EXPECT_EQ(lines(R"(["transcribeQueue",[["rec.mp4",[1,2]]]])"),
              refused("“stretches” is not right: a source, a range and a name are expected."));
}

TEST(TranscribeCommands, waitForTheWorkThatRuns) {
    Lines lines;
    const Environment key("OPENROUTER_API_KEY", "sk-or-v1-of-the-test");
    auto& editor = lines.editor();
    editor.setMissing({});
    editor.work.run("Measuring", [&](Work&) -> QCoro::Task<> {
        TranscribeCommands::transcribeQueue(editor, {{lines.project().sources[0].id, {1, 2}, "C01"}}, true,
                                            {});
        co_return;
    });
    EXPECT_EQ(editor.toast(), "Wait for Measuring to finish");
}

TEST(TranscribeCommands, whatIsMissingIsLeftOut) {
    Lines lines;
    const Environment key("OPENROUTER_API_KEY", "sk-or-v1-of-the-test");
    EXPECT_EQ(lines(R"(["transcribeQueue",[["rec.mp4",[1,2],"C01"]],true])"), fine);
    EXPECT_FALSE(lines.editor().work.isRunning());
    lines.editor().setMissing({});
    const auto answer = lines(R"(["transcribeQueue",[["rec.mp4",[1,2],"C01"]],true])");
    EXPECT_TRUE(answer.starts_with(R"({"ok":true,"toast":"C01 could not be transcribed. )")) << answer;
    ASSERT_EQ(Activity::read(lines.package()).size(), 1u);
    EXPECT_EQ(Activity::read(lines.package())[0].state, "failed");
    EXPECT_TRUE(Activity::read(lines.package())[0].ended);
}
