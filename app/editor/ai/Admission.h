#pragma once

#include "app/editor/ai/Consent.h"
#include "app/editor/ai/Outcome.h"
#include "core/ai/Ask.h"
#include "core/ai/Price.h"
#include "core/ai/Pricing.h"
#include "core/model/Project.h"

#include <functional>
#include <optional>
#include <string>

#include <qcorotask.h>

namespace murbo {

class Editor;

/// What is checked before a run of models starts, and what its owner is asked.
struct Admission {
    /// Who pays, and who is asked.
    struct Payer {
        std::string key;
        std::string modelId;
    };

    std::string title; ///< of the question
    std::string withoutKey = "Add your OpenRouter key in Settings ▸ AI to use the AI";
    Ask::Model model = Ask::Model::cheap;
    Pricing::Asked asked = Pricing::Asked::request;
    std::string more; ///< added to the question's text

    /// What else is missing, in words. Like `estimate` it runs off the main thread.
    std::function<std::optional<std::string>(const Project&)> lacking;
    /// The dollars at a price.
    std::function<double(const Project&, const Price&)> estimate;

    /// Checks in turn the key, what is lacking, the limit on what a day may cost, and asks. Nothing where the
    /// run may not start; the owner has then seen why.
    QCoro::Task<std::optional<Payer>> pass(Editor& editor, Consent consent, OutcomeRef outcome) const;
};

}
