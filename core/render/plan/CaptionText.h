#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace murbo {

/// Breaking what is said into captions and words, also where a language writes no blanks.
namespace CaptionText {

/// A stretch of a UTF-8 text, in bytes.
struct Range {
    std::size_t from = 0;
    std::size_t to = 0;
    bool operator==(const Range&) const = default;
};

/// How many characters a person would count (grapheme clusters).
std::size_t count(std::string_view text);

/// The text without its tags in square brackets.
std::string said(std::string_view text);

/// The text in pieces of about equal length, at most about `most` characters each. Never empty.
std::vector<std::string> pieces(const std::string& text, std::int64_t max);

/// Adjacent ranges that cover the text: words with the punctuation that belongs to them, and white space.
/// In Thai text Latin words stay together as phrases of up to `most` characters.
std::vector<Range> units(std::string_view text, std::int64_t max);

/// The units that are words.
std::vector<Range> words(std::string_view text);

}

}
