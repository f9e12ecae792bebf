#include "app/editor/commands/VideoAICommands.h"

#include "app/editor/ai/LookTasks.h"
#include "app/editor/ai/ModelJob.h"
#include "app/editor/commands/IdeaCommands.h"
#include "app/editor/commands/Row.h"
#include "app/editor/commands/VideoCommands.h"
#include "platform/base/Text.h"

#include <fmt/format.h>

namespace murbo::VideoAICommands {
namespace {

using Payer = ModelJob::Payer;
using VideoTasks::Wish;

constexpr const char* firstPassInstruction =
    "Make the video that is worth making from these clips: the strongest moment, set up and paid off.";

OutcomeRef refused(Editor& editor, const char* words) {
    const auto outcome = std::make_shared<Outcome>();
    outcome->failed = true;
    outcome->failure = words;
    editor.refuse(words);
    return outcome;
}

/// Why there is nothing to go by, in these words.
std::function<std::optional<std::string>(const Project&)> unless(bool there, const char* words) {
    return [=](const Project&) { return there ? std::nullopt : std::optional<std::string>(words); };
}

bool saysSomething(const std::string& words) {
    return !Text::trimmed(words).empty();
}

/// A run of one task. Its reading loop, where it has one, is priced by its first request.
OutcomeRef run(Editor& editor, const ModelTask& task, Admission admission, Consent consent) {
    const auto outcome = std::make_shared<Outcome>();
    admission.title = task.title;
    admission.estimate = [task](const Project& project, const Price& price) {
        return VideoTasks::cost(task, project, price);
    };
    ModelJob::begin(editor, admission, consent, outcome,
                    [=, &editor](const Payer& payer) { ModelJob::queue(editor, task, payer, outcome); });
    return outcome;
}

Admission judging() {
    Admission admission;
    admission.model = Ask::Model::strong;
    admission.asked = Pricing::Asked::reading;
    return admission;
}

/// The video that a command is for, or the open one; null where there is none.
const Video* chosen(const Editor& editor, const std::optional<UUID>& video) {
    return video ? editor.video(*video) : editor.video();
}

/// A look and then sounds for a video, within a job. Nothing is asked for after a failure.
QCoro::Task<> dress(Work& work, Editor& editor, UUID video, Payer payer, OutcomeRef outcome) {
    auto looking = ModelJob::perform(work, editor, LookTasks::look(video, editor.package()), payer, outcome);
    const auto look = co_await looking;
    if (!look) co_return;
    const auto checking = [] { return LookTasks::noSounds(); };
    const auto noSounds = co_await editor.background.run(checking);
    if (noSounds) {
        outcome->failed = true;
        outcome->failure = noSounds;
        editor.refuse(*noSounds);
        co_return;
    }
    auto sounding =
        ModelJob::perform(work, editor, LookTasks::sound(video, editor.package()), payer, outcome);
    co_await sounding;
}

Payer onLightModel(const Payer& payer) {
    return {payer.key, Ask::modelId(Ask::Model::cheap)};
}

QCoro::Task<> cutAndDress(Work& work, Editor& editor, ModelTask cutting, Payer payer, OutcomeRef outcome,
                          Editor::Busy) {
    auto performing = ModelJob::perform(work, editor, cutting, payer, outcome);
    const auto cut = co_await performing;
    if (!cut || !cut->video) co_return;
    auto dressing = dress(work, editor, *cut->video, onLightModel(payer), outcome);
    co_await dressing;
}

QCoro::Task<> dressAlone(Work& work, Editor& editor, UUID video, Payer payer, OutcomeRef outcome,
                         Editor::Busy) {
    auto dressing = dress(work, editor, video, payer, outcome);
    co_await dressing;
}

}

OutcomeRef findIdeas(Editor& editor, const Wish& wish, Consent consent) {
    return run(editor, VideoTasks::ideas(wish), judging(), consent);
}

OutcomeRef cutToInstruction(Editor& editor, const Wish& wish, Consent consent) {
    auto admission = judging();
    admission.lacking = unless(saysSomething(wish.instruction), "Say what the video should be");
    return run(editor, VideoTasks::cut(wish), admission, consent);
}

OutcomeRef reviseCuts(Editor& editor, const std::optional<UUID>& id, const std::string& instruction,
                      Consent consent) {
    const auto* video = chosen(editor, id);
    if (!video) return refused(editor, "Open a video first");
    auto admission = judging();
    admission.lacking = unless(saysSomething(instruction), "Say how the cuts should change");
    return run(editor, VideoTasks::revise(*video, instruction), admission, consent);
}

OutcomeRef lookByAI(Editor& editor, const std::optional<UUID>& id, Consent consent) {
    const auto* video = chosen(editor, id);
    if (!video) return refused(editor, "Open a video first");
    return run(editor, LookTasks::look(video->id, editor.package()), {}, consent);
}

OutcomeRef soundByAI(Editor& editor, const std::optional<UUID>& id, Consent consent) {
    const auto* video = chosen(editor, id);
    if (!video) return refused(editor, "Open a video first");
    Admission admission;
    admission.lacking = [](const Project&) { return LookTasks::noSounds(); };
    return run(editor, LookTasks::sound(video->id, editor.package()), admission, consent);
}

OutcomeRef firstPass(Editor& editor, Wish wish, Consent consent) {
    const auto outcome = std::make_shared<Outcome>();
    if (!saysSomething(wish.instruction)) wish.instruction = firstPassInstruction;
    const auto cutting = VideoTasks::cut(wish, Kit::ID::firstPass);
    auto admission = judging();
    admission.title = "First Pass";
    admission.more =
        fmt::format(" Then its look and its sound, a request each, on {}.", Ask::modelId(Ask::Model::cheap));
    admission.estimate = [=](const Project& project, const Price& price) {
        return VideoTasks::cost(cutting, project, price);
    };
    ModelJob::begin(editor, admission, consent, outcome, [=, &editor](const Payer& payer) {
        editor.work.queue(cutting.label,
                          [&editor, cutting, payer, outcome, hold = editor.busy()](Work& work) {
                              return cutAndDress(work, editor, cutting, payer, outcome, hold);
                          });
    });
    return outcome;
}

OutcomeRef firstPassOf(Editor& editor, const UUID& idea, Consent consent) {
    const auto outcome = std::make_shared<Outcome>();
    const auto aspect = VideoCommands::lastAspect();
    Admission admission;
    admission.title = "First Pass";
    admission.more = " That is its look; its sound is another request.";
    admission.estimate = [=](Project project, const Price& price) {
        const auto video = IdeaCommands::make(project, idea, aspect);
        return VideoTasks::cost(LookTasks::look(video, std::nullopt), project, price);
    };
    ModelJob::begin(editor, admission, consent, outcome, [=, &editor](const Payer& payer) {
        const auto video = IdeaCommands::makeVideo(editor, idea);
        if (!video) return;
        outcome->video = video;
        editor.work.queue("Look", [&editor, video, payer, outcome, hold = editor.busy()](Work& work) {
            return dressAlone(work, editor, *video, payer, outcome, hold);
        });
    });
    return outcome;
}

CommandList table() {
    using Kind::AnyText;
    using Kind::Maybe;
    using Clips = Kind::ListOf<Kind::ClipTag>;
    using Aspect = Kind::OneOf<Video::Aspect>;
    const auto wish = [](const std::string& instruction, const std::optional<std::vector<UUID>>& clips,
                         std::optional<Video::Aspect> aspect) {
        return Wish{instruction, clips.value_or(std::vector<UUID>()),
                    aspect.value_or(VideoCommands::lastAspect())};
    };
    return {
        row<Maybe<AnyText>, Maybe<Clips>, Maybe<Aspect>>(
            "findIdeas", "Find Ideas", {"instruction", "clips", "aspect"},
            [=](Editor& editor, const auto& words, const auto& clips, auto aspect) {
                findIdeas(editor, wish(words.value_or(""), clips, aspect));
            }),
        row<AnyText, Maybe<Clips>, Maybe<Aspect>>(
            "cutToInstruction", "Cut to Instruction", {"instruction", "clips", "aspect"},
            [=](Editor& editor, const auto& words, const auto& clips, auto aspect) {
                cutToInstruction(editor, wish(words, clips, aspect));
            }),
        row<AnyText, Maybe<Kind::VideoTag>>(
            "reviseCuts", "Revise Cuts", {"instruction", "video"},
            [](Editor& editor, const auto& words, const auto& video) { reviseCuts(editor, video, words); }),
        row<Maybe<Kind::VideoTag>>("lookByAI", "Look by AI", {"video"},
                                   [](Editor& editor, const auto& video) { lookByAI(editor, video); }),
        row<Maybe<Kind::VideoTag>>("soundByAI", "Sound by AI", {"video"},
                                   [](Editor& editor, const auto& video) { soundByAI(editor, video); }),
        row<Clips, Maybe<AnyText>, Maybe<Aspect>>(
            "firstPass", "First Pass", {"clips", "instruction", "aspect"},
            [=](Editor& editor, const auto& clips, const auto& words, auto aspect) {
                firstPass(editor, wish(words.value_or(""), std::optional(clips), aspect));
            }),
        row<Kind::IdeaNumber>("firstPassOf", "First Pass of an Idea", {"idea"},
                              [](Editor& editor, const UUID& idea) { firstPassOf(editor, idea); }),
    };
}

}
