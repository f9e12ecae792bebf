#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace murbo {

/// A caption's text in the pieces that it is shown in, one after the other.
struct CaptionBreak {
    std::vector<std::string> texts;
    /// At which share of its time, 0 to 1, each ends: by length, so that reading is spread evenly.
    std::vector<double> shares;

    /// How a text is broken into pieces of at most about `max` characters. What was asked for lately is kept:
    /// with each change of a video all of its captions are worked out anew, and nearly all are what they
    /// were. Any thread may ask.
    static std::shared_ptr<const CaptionBreak> of(const std::string& text, std::int64_t max);

    /// The shares of texts by their length.
    static std::vector<double> byLength(const std::vector<std::string>& texts);
};

}
