#pragma once

#include <filesystem>
#include <functional>
#include <stop_token>
#include <string>
#include <vector>

namespace murbo {

/// A line that an engine heard, in seconds from the start of the sound that it was given.
struct HeardLine {
    double start = 0;
    double end = 0;
    std::string text;

    bool operator==(const HeardLine&) const = default;
};

/// What an engine gives back.
struct Transcribed {
    std::vector<HeardLine> lines;
    double cost = 0;     ///< US dollars charged for this request
    std::string request; ///< what was asked, for the activity log
};

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
