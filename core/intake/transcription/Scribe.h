#pragma once

#include "core/intake/transcription/Transcriber.h"
#include "core/model/Settings.h"
#include "platform/net/OpenRouterAddress.h"

#include <chrono>
#include <string>
#include <vector>

namespace murbo {

/// Speech to text by a paid model, through OpenRouter.
namespace Scribe {

inline constexpr const char* name = "ElevenLabs Scribe (OpenRouter)";
inline constexpr const char* standardModel = Settings::standardTranscriptionModel;

/// Where and how patiently it is asked.
struct Service {
    std::string base = OpenRouterAddress::base();
    std::chrono::milliseconds timeout = std::chrono::seconds(300);
};

/// The engine with a key and a model's id. An empty key fails when it is used.
Transcriber with(const std::string& key, const std::string& model = standardModel,
                 const Service& service = {});

/// Puts words together to lines: a pause of 0.6 seconds ends a line, a shorter one a line that is long
/// already.
std::vector<HeardLine> lines(const std::vector<HeardLine>& words);

}

}
