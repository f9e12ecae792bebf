#include "app/editor/commands/FootageAICommands.h"

#include "app/editor/ai/FootageTasks.h"
#include "app/editor/ai/ModelJob.h"
#include "app/editor/commands/Row.h"
#include "core/ai/NotesFromFrames.h"

#include <fmt/format.h>

namespace murbo::FootageAICommands {
namespace {

using ClipIds = std::vector<UUID>;
using Payer = ModelJob::Payer;

/// How far a run over several batches is, and how its sum is told.
struct BatchTally {
    std::size_t left = 0; ///< batches
    std::size_t count = 0;
    bool stopped = false;
    std::string (*words)(std::size_t count) = nullptr;
};

QCoro::Task<> performBatch(Work& work, Editor& editor, ModelTask task, Payer payer, OutcomeRef outcome,
                           std::shared_ptr<BatchTally> tally, Editor::Busy) {
    // Who stops one batch stops the run.
    if (outcome->stopped) co_return;
    auto performing = ModelJob::perform(work, editor, task, payer, outcome);
    const auto settled = co_await performing;
    tally->count += settled ? settled->count : 0;
    const bool isLast = --tally->left == 0;
    const auto words = tally->words(tally->count);
    if (!isLast || outcome->stopped || words.empty()) co_return;
    // Where all failed, there is nothing to add to the reasons.
    if (tally->count == 0 && outcome->failed) co_return;
    outcome->said.push_back(words);
    editor.say(words);
}

using MakeTask = ModelTask (*)(const Project&, const ClipIds&);

/// Puts a job in line for each batch of the clips.
QCoro::Task<> queueBatches(Editor& editor, ClipIds clips, MakeTask make, std::string (*words)(std::size_t),
                           Payer payer, OutcomeRef outcome, Editor::Busy) {
    const auto stop = editor.work.untilAllCancelled();
    const auto making = [make, clips, project = editor.project()] {
        std::vector<ModelTask> tasks;
        for (const auto& batch : FootageTasks::batches(project, clips)) tasks.push_back(make(project, batch));
        return tasks;
    };
    const auto tasks = co_await editor.background.run(making);
    outcome->stopped = stop.stop_requested();
    if (outcome->stopped) co_return;
    const auto tally = std::make_shared<BatchTally>(BatchTally{.left = tasks.size(), .words = words});
    for (const auto& task : tasks)
        editor.work.queue(task.label,
                          [&editor, task, payer, outcome, tally, hold = editor.busy()](Work& work) {
                              return performBatch(work, editor, task, payer, outcome, tally, hold);
                          });
}

std::string describedWords(std::size_t count) {
    return fmt::format("Described {} clip{}", count, count == 1 ? "" : "s");
}

std::string correctedWords(std::size_t count) {
    return count == 0 ? "Nothing to correct"
                      : fmt::format("Corrected {} line{}", count, count == 1 ? "" : "s");
}

/// Why there is nothing to send of these clips.
std::function<std::optional<std::string>(const Project&)> unlessSaid(const ClipIds& clips) {
    return [=](const Project& project) -> std::optional<std::string> {
        if (!FootageTasks::batches(project, clips).empty()) return std::nullopt;
        return clips.size() == 1 ? "Transcribe the clip first: nothing is said in it yet"
                                 : "Transcribe the clips first: nothing is said in them yet";
    };
}

}

OutcomeRef describeClips(Editor& editor, const ClipIds& clips, Consent consent) {
    const auto outcome = std::make_shared<Outcome>();
    Admission admission;
    admission.title = "Describe Clips";
    admission.withoutKey = "Add your OpenRouter key in Settings ▸ AI to describe clips";
    admission.asked = Pricing::Asked::describing;
    admission.lacking = unlessSaid(clips);
    admission.estimate = [=](const Project& project, const Price& price) {
        return FootageTasks::describingCost(project, clips, price);
    };
    ModelJob::begin(editor, admission, consent, outcome, [=, &editor](const Payer& payer) {
        queueBatches(editor, clips, FootageTasks::describe, describedWords, payer, outcome, editor.busy());
    });
    return outcome;
}

OutcomeRef fixWords(Editor& editor, const ClipIds& clips, Consent consent) {
    const auto outcome = std::make_shared<Outcome>();
    Admission admission;
    admission.title = "Fix Words";
    admission.lacking = unlessSaid(clips);
    admission.estimate = [=](const Project& project, const Price& price) {
        return FootageTasks::fixingCost(project, clips, price);
    };
    ModelJob::begin(editor, admission, consent, outcome, [=, &editor](const Payer& payer) {
        queueBatches(editor, clips, FootageTasks::fixWords, correctedWords, payer, outcome, editor.busy());
    });
    return outcome;
}

OutcomeRef notesFromFrames(Editor& editor, Consent consent) {
    const auto outcome = std::make_shared<Outcome>();
    const auto* held = editor.held();
    const auto source = held ? std::optional(held->source) : editor.heldSource();
    const auto range = editor.range();
    if (!source || !range) {
        outcome->failed = true;
        outcome->failure = "Mark a range in the source viewer first";
        editor.refuse(*outcome->failure);
        return outcome;
    }
    Admission admission;
    admission.title = "Notes from Frames";
    admission.more = NotesFromFrames::warning(NotesFromFrames::times(*range).size());
    admission.estimate = [source = *source, range = *range](const Project& project, const Price& price) {
        return FootageTasks::notingCost(project, source, range, price);
    };
    const auto task = FootageTasks::note(*source, *range);
    ModelJob::begin(editor, admission, consent, outcome,
                    [=, &editor](const Payer& payer) { ModelJob::queue(editor, task, payer, outcome); });
    return outcome;
}

CommandList table() {
    const auto holdsRange = [](const Editor& editor) {
        return editor.range() && (editor.held() || editor.heldSource());
    };
    return {
        row<Kind::ListOf<Kind::ClipTag>, Kind::Maybe<Kind::Flag>>(
            "describeClips", "Describe Clips", {"clips", "asking"},
            [](Editor& editor, const ClipIds& clips, std::optional<bool> asking) {
                describeClips(editor, clips, asking.value_or(true) ? Consent::asked : Consent::given);
            }),
        row<Kind::ListOf<Kind::ClipTag>>(
            "fixWords", "Fix Words", {"clips"},
            [](Editor& editor, const ClipIds& clips) { fixWords(editor, clips); }),
        row<>("notesFromFrames", "Notes from Frames", {}, [](Editor& editor) { notesFromFrames(editor); })
            .when(holdsRange),
    };
}

}
