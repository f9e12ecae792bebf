#include "app/editor/ai/Admission.h"

#include "app/editor/Editor.h"
#include "core/ai/Quote.h"
#include "platform/store/Keychain.h"

namespace murbo {
namespace {

constexpr const char* needsYes = "This costs money. Say --yes to go on.";

/// What the checks off the main thread came to.
struct Checked {
    std::optional<std::string> lacking;
    std::string key;
    Quote quote;
};

Checked check(const Admission& wanted, const Project& project, Consent consent, const std::stop_token& stop) {
    Checked found;
    found.key = Keychain::openRouter().value_or("");
    if (found.key.empty()) found.lacking = wanted.withoutKey;
    if (!found.lacking && wanted.lacking) found.lacking = wanted.lacking(project);
    if (!found.lacking && consent == Consent::lacking) found.lacking = needsYes;
    if (found.lacking) return found;
    const auto dollars = [&](const Price& price) { return wanted.estimate(project, price); };
    found.quote = Quote::of(wanted.asked, wanted.model, dollars, consent == Consent::asked, stop);
    found.lacking = found.quote.refusal;
    return found;
}

}

QCoro::Task<std::optional<Admission::Payer>> Admission::pass(Editor& editor, Consent consent,
                                                             OutcomeRef outcome) const {
    // Where nobody can be asked, nobody is.
    if (consent == Consent::asked && !editor.confirm) consent = Consent::given;
    const auto stop = editor.work.untilAllCancelled();
    const auto checking = [wanted = *this, project = editor.project(), consent, stop] {
        return check(wanted, project, consent, stop);
    };
    const auto checked = co_await editor.background.run(checking);
    outcome->stopped = stop.stop_requested();
    if (outcome->stopped) co_return std::nullopt;
    if (checked.lacking) {
        editor.refuse(*checked.lacking);
        outcome->failure = checked.lacking;
        outcome->failed = true;
        co_return std::nullopt;
    }
    if (consent == Consent::asked) {
        auto asking = editor.confirm(title, checked.quote.text + more, "Go");
        const bool agreed = co_await asking;
        outcome->stopped = !agreed;
        if (!agreed) co_return std::nullopt;
    }
    co_return Payer{checked.key, checked.quote.modelId};
}

}
