#pragma once

#include "core/intake/transcription/Transcribed.h"

#include <filesystem>
#include <functional>
#include <stop_token>
#include <string>

namespace murbo {

/// An engine that turns speech to text. A plain value; runs may overlap.
struct Transcriber {
    std::string name; ///< in the interface and in logs
    bool paid = false;

    /// Listens to a WAV file as Sound::wav makes it, in a language given by its code, with a hint for names
    /// that an engine may use. Blocks. Throws a Problem, or Cancelled.
    std::function<Transcribed(const std::filesystem::path& wav, const std::string& language,
                              const std::string& hint, std::stop_token stop)>
        transcribe;
};

}
