#include "app/editor/commands/TranscribeCommands.h"
#include "core/ai/Spending.h"
#include "core/model/package/Activity.h"
#include "tests/MadeMedia.h"
#include "tests/editor/Asking.h"

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
        lines(R"(["stretches",["rec.mp4","cam.mp4"]])"),
        gave("[" + stretch(sources[0].id, R"([20,30],"C01")") + "," +
             stretch(sources[0].id, R"([40,50],"C02")") + "," + stretch(sources[0].id, R"([60,70],"C03")") +
             "," + stretch(sources[1].id, R"([0,30],"cam.mp4")") + "]"));
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
}

TEST(TranscribeCommands, stretchesAreHeardInTurnUntilOneFails) {
    MURBO_NEEDS_FFMPEG();
    Asking lines;
    const Environment state("XDG_STATE_HOME", lines.folder / "state");
    auto& editor = lines.editor();
    const auto movie = made::file("said.mp4", "-f lavfi -i sine=d=8 -f lavfi -i color=s=64x36:r=5:d=8");
    editor.apply([&](Project& project) {
        project.sources.edit()[0].path = movie;
        auto& said = project.transcripts.begin()->second.lines.edit();
        said = {{.start = 2, .end = 3, .text = "replaced"}, {.start = 7, .end = 8, .text = "kept"}};
    });
    editor.setMissing({});
    std::vector<std::string> labels;
    QObject::connect(&editor.work, &Work::labelChanged, [&] {
        const auto label = editor.work.label().value_or("Transcribing");
        if (label != "Transcribing") labels.push_back(label);
    });
    const auto hears = [&](const char* word) {
        lines.model.sends(
            FakeServer::reply(200, nlohmann::json{{"words", {{{"word", word}, {"start", 0.5}, {"end", 1}}}},
                                                  {"usage", {{"cost", 0.25}}}}
                                       .dump()));
    };
    int ended = 0;
    const auto transcribe = [&](const std::vector<TranscribeCommands::SourceStretch>& stretches) {
        TranscribeCommands::transcribeQueue(editor, stretches, true, [&] { ++ended; });
        lines(R"(["closeDrag"])");
    };
    const auto rec = lines.project().sources[0].id;
    hears("One");
    hears("Two");
    transcribe({{rec, {1, 3}, "C01"}, {rec, {3, 5}, "C02"}});
    EXPECT_EQ(ended, 1);
    lines.model.sends(FakeServer::reply(402, R"({"error":{"message":"No credits."}})"));
    transcribe({{rec, {5, 6}, "C03"}});
    EXPECT_EQ(editor.toast(), "C03 could not be transcribed. Scribe could not transcribe this. No credits.");
    lines.model.sends("");
    lines.meanwhile([](Editor& session) { session.work.cancelAll(); });
    transcribe({{rec, {5, 6}, "C03"}});
    EXPECT_EQ(ended, 1) << "what comes after comes only where all went well";
    EXPECT_THAT(labels, testing::ElementsAre("Transcribing C01, 1 of 2", "Transcribing C02, 2 of 2",
                                             "Transcribing C03", "Transcribing C03"));
    std::string said, logged;
    for (const auto& line : lines.project().transcript(rec).lines)
        said += fmt::format("{} {} {};", line.start, line.end, line.text);
    EXPECT_EQ(said, "1.5 2 One;3.5 4 Two;7 8 kept;");
    for (const auto& entry : Activity::read(lines.package())) {
        logged += fmt::format("{} {} {};", entry.title, entry.state, entry.cost.value_or(0));
        EXPECT_LT(*entry.ended - entry.started, std::chrono::minutes(5));
        EXPECT_EQ(entry.error.has_value(), entry.state != "done");
    }
    EXPECT_EQ(logged,
              "Transcribe C01 done 0.25;Transcribe C02 done 0.25;Transcribe C03 failed 0;Transcribe C03 "
              "stopped 0;");
    EXPECT_DOUBLE_EQ(Spending::today(), 0.5);
}
