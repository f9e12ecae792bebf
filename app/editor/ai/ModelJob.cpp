#include "app/editor/ai/ModelJob.h"

#include "core/ai/Brief.h"
#include "core/ai/LastRuns.h"
#include "core/ai/PaidRequest.h"
#include "core/ai/Reply.h"
#include "platform/base/Cancelled.h"

#include <fmt/format.h>
#include <fmt/ranges.h>
#include <nlohmann/json.hpp>

namespace murbo::ModelJob {
namespace {

using nlohmann::json;

/// How often a change is worked out anew on a thread because the owner changed the project meanwhile. Then
/// it is worked out where nobody can.
constexpr int maxTries = 3;

/// One request and what its reply led to.
struct Round {
    std::shared_ptr<const json> answer; ///< none where the model asked to read more
    std::vector<std::string> asked;     ///< the clips that it asked for
};

std::string titleOf(const ModelTask& task, const Conversation& told) {
    const auto* loop = told.reading();
    if (!loop) return task.title;
    if (loop->rounds() == 0) return task.title + ": reading";
    return fmt::format("{}: reading on ({})", task.title, loop->rounds());
}

/// A round of a conversation shows only what was new in it.
std::string textOf(const Conversation& told) {
    return told.reading() ? told.ask().messages.back().content : told.ask().text();
}

Round exchange(Conversation& told, const PaidRequest& request, const std::string& key,
               const std::stop_token& stop) {
    const auto reply = request.send(key, stop).text;
    Round round;
    if (told.goesOn(reply))
        for (const auto* clip : told.reading()->asked()) round.asked.push_back(clip->tag());
    else
        round.answer = std::make_shared<const json>(Reply::object(reply));
    return round;
}

QCoro::Task<std::shared_ptr<const json>> converse(Work& work, Editor& editor, ModelTask task, Payer payer,
                                                  std::shared_ptr<Conversation> told) {
    const auto stop = work.stopping();
    for (;;) {
        const auto exchanging = [=, package = editor.package()] {
            const PaidRequest request{titleOf(task, *told), told->ask(), textOf(*told), payer.modelId,
                                      package};
            return exchange(*told, request, payer.key, stop);
        };
        const auto round = co_await editor.background.run(exchanging);
        if (stop.stop_requested()) throw Cancelled();
        if (round.answer) co_return round.answer;
        work.setLabel(fmt::format("{}: it asked to read {}", task.title, fmt::join(round.asked, ", ")));
    }
}

/// Makes an answer one step of the project as it is when the step is made.
QCoro::Task<ModelTask::Settled> settle(Editor& editor, ModelTask task, Payer payer,
                                       std::shared_ptr<Conversation> told,
                                       std::shared_ptr<const json> answer) {
    const auto run = LastRuns::now(Run::By::app, payer.modelId);
    for (int tries = 0; tries < maxTries; ++tries) {
        const auto before = editor.project();
        const auto changed = std::make_shared<Project>(before);
        const auto finishing = [=] { return task.finish(*answer, *told, *changed, run); };
        const auto settled = co_await editor.background.run(finishing);
        bool held = false;
        editor.change(task.step, [&](Project& live) {
            held = live == before;
            if (held) live = *changed;
        });
        if (held) co_return settled;
    }
    ModelTask::Settled settled;
    editor.change(task.step, [&](Project& live) { settled = task.finish(*answer, *told, live, run); });
    co_return settled;
}

/// Holds a conversation to its end, and makes its answer a step.
QCoro::Task<ModelTask::Settled> answered(Work& work, Editor& editor, ModelTask task, Payer payer,
                                         std::shared_ptr<Conversation> told) {
    auto conversing = converse(work, editor, task, payer, told);
    const auto answer = co_await conversing;
    auto settling = settle(editor, task, payer, told, answer);
    const auto settled = co_await settling;
    co_return settled;
}

/// Frees a conversation off the main thread: that of a large project is large.
void forget(Editor& editor, std::shared_ptr<Conversation> told) {
    const auto last = std::make_shared<std::shared_ptr<Conversation>>(std::move(told));
    editor.background.start([last] { last->reset(); }, [] {});
}

/// Words may come from a model: none of them breaks a line or reaches a terminal as a code.
void tell(Editor& editor, const ModelTask::Settled& settled, Outcome& outcome) {
    const auto words = Brief::oneLine(settled.words);
    if (!settled.usable) {
        outcome.failure = words;
        outcome.failed = true;
        return editor.refuse(words);
    }
    outcome.video = settled.video ? settled.video : outcome.video;
    if (words.empty()) return;
    outcome.said.push_back(words);
    editor.say(words);
}

void tellFailure(Editor& editor, const ModelTask& task, const std::string& given, Outcome& outcome) {
    const auto reason = Brief::oneLine(given);
    outcome.failed = true;
    if (task.isPart)
        outcome.said.push_back(task.beforeReason + reason);
    else
        outcome.failure = reason;
    editor.refuse(task.beforeReason + reason);
}

QCoro::Task<> performAlone(Work& work, Editor& editor, ModelTask task, Payer payer, OutcomeRef outcome,
                           Editor::Busy) {
    co_await perform(work, editor, task, payer, outcome);
}

}

QCoro::Task<> begin(Editor& editor, Admission admission, Consent consent, OutcomeRef outcome,
                    std::function<void(const Payer&)> go) {
    const auto hold = editor.busy();
    try {
        const auto payer = co_await admission.pass(editor, consent, outcome);
        if (payer) go(*payer);
    } catch (const std::exception& error) {
        outcome->failure = error.what();
        outcome->failed = true;
        editor.refuse(error.what());
    }
}

void queue(Editor& editor, const ModelTask& task, const Payer& payer, const OutcomeRef& outcome) {
    editor.work.queue(task.label, [&editor, task, payer, outcome, hold = editor.busy()](Work& work) {
        return performAlone(work, editor, task, payer, outcome, hold);
    });
}

QCoro::Task<std::optional<ModelTask::Settled>> perform(Work& work, Editor& editor, ModelTask task,
                                                       Payer payer, OutcomeRef outcome) {
    const auto shown = editor.openVideo();
    try {
        work.setLabel(task.label);
        const auto beginning = [begin = task.begin, project = editor.project()] {
            return std::make_shared<Conversation>(begin(project));
        };
        auto told = co_await editor.background.run(beginning);
        if (work.stopping().stop_requested()) throw Cancelled();
        auto answering = answered(work, editor, task, payer, told);
        const auto settled = co_await answering;
        answering = QCoro::Task<ModelTask::Settled>();
        forget(editor, std::move(told));
        tell(editor, settled, *outcome);
        // Whoever has gone on to another video stays there.
        if (settled.video && editor.openVideo() == shown) editor.openOnTimeline(settled.video);
        co_return settled.usable ? std::optional(settled) : std::nullopt;
    } catch (const Cancelled&) {
        outcome->stopped = true;
    } catch (const std::exception& error) {
        tellFailure(editor, task, error.what(), *outcome);
    }
    co_return std::nullopt;
}

}
