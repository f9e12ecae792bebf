#include "app/editor/commands/TranscribeCommands.h"
#include "app/editor/commands/Transcriptions.h"
#include "core/ai/Spending.h"
#include "core/model/package/Activity.h"
#include "tests/MadeMedia.h"
#include "tests/editor/Asking.h"

using namespace murbo;

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
    const auto& transcriptions = Transcriptions::of(editor);
    std::vector<std::string> states; // of C03
    QObject::connect(&transcriptions, &Transcriptions::changed, [&] {
        const auto rec = editor.project().sources[0].id;
        const auto* failure = transcriptions.failure(rec, {5, 6});
        states.push_back(transcriptions.isHearing(rec, {5, 6}) ? "heard" : failure ? failure->words : "");
    });
    int ended = 0;
    const auto transcribe = [&](const std::vector<SourceStretch>& stretches) {
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
    TranscribeCommands::tryAgain(editor, rec, {5, 6});
    lines(R"(["closeDrag"])");
    EXPECT_EQ(ended, 1) << "what comes after comes only where all went well";
    EXPECT_THAT(labels, testing::ElementsAre("Transcribing C01, 1 of 2", "Transcribing C02, 2 of 2",
                                             "Transcribing C03", "Transcribing C03"));
    EXPECT_THAT(states, testing::ElementsAre("", "", "", "", "heard",
                                             "Scribe could not transcribe this. No credits.", "heard", ""));
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
