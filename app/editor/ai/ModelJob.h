#pragma once

#include "app/editor/Editor.h"
#include "app/editor/ai/Admission.h"
#include "app/editor/ai/ModelTask.h"
#include "app/editor/ai/Outcome.h"

#include <functional>
#include <optional>

#include <qcorotask.h>

namespace murbo {

/// Tasks for models as jobs of a session: each change is one undo step, each request an entry in the log.
namespace ModelJob {

using Payer = Admission::Payer;

/// Lets a run begin: has it pass its admission, and then has `go` put its jobs in line.
QCoro::Task<> begin(Editor& editor, Admission admission, Consent consent, OutcomeRef outcome,
                    std::function<void(const Payer&)> go);

/// Puts one task in line.
void queue(Editor& editor, const ModelTask& task, const Payer& payer, const OutcomeRef& outcome);

/// Carries out one task within a job, says what came of it, and opens a video that it made.
/// Nothing where it failed, could not be used or was stopped.
QCoro::Task<std::optional<ModelTask::Settled>> perform(Work& work, Editor& editor, ModelTask task,
                                                       Payer payer, OutcomeRef outcome);

}

}
