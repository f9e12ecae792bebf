#pragma once

#include "core/ai/Ask.h"
#include "core/ai/Price.h"

#include <map>
#include <stop_token>
#include <string>
#include <utility>

namespace murbo {

/// The client of OpenRouter: one request, one whole answer; no streaming, no second try. Any thread may use
/// one.
class OpenRouter {
public:
    struct Answer {
        std::string text;
        double cost = 0; ///< dollars; 0 where the answer says none that can be
    };

    explicit OpenRouter(std::string given) : key(std::move(given)) {}

    /// Sends a request and waits for the answer. Throws a Problem in words for the owner, Cancelled once
    /// `stop` is asked for.
    Answer send(const Ask& ask, const std::string& modelId, std::stop_token stop = {}) const;

    /// What comes of trying the key, as a sentence. Never fails.
    std::string check(std::stop_token stop = {}) const;

    /// What models cost, by their ids; asked without a key. Throws a Problem where no answer comes.
    static std::map<std::string, Price> prices(std::stop_token stop = {});

private:
    std::string key;
};

}
