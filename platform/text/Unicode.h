#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace murbo {

/// Where a UTF-8 text may be divided, and what its characters are. All positions are bytes. Bytes that are no
/// UTF-8 count as one replacement character each. Any thread may call.
namespace Unicode {

/// The ends of the characters that a person would count (grapheme clusters, UAX #29).
std::vector<std::size_t> characterEnds(std::string_view text);

/// How many such characters.
std::size_t characterCount(std::string_view text);

/// The ends of words, of runs of white space, and of everything between them (UAX #29, with dictionaries for
/// Thai, Lao, Khmer, Burmese, Chinese and Japanese). Adjacent; the last is the end of the text.
std::vector<std::size_t> wordEnds(std::string_view text);

/// The places where a line may end (UAX #14), the end of the text being the last of them.
std::vector<std::size_t> lineEnds(std::string_view text);

/// The code point at `at`, which moves past it.
char32_t next(std::string_view text, std::size_t& at);

bool isBlank(char32_t character);        ///< any white space, line breaks included
bool isTrimmedBlank(char32_t character); ///< a blank within a line: space separators and the tab
bool isMark(char32_t character);         ///< punctuation or a symbol; emoji are symbols

/// Whether it is emoji alone, drawn in colours of their own, with blanks and line breaks at most between.
bool isOnlyEmoji(std::string_view text);

/// Without blanks and tabs at either end.
std::string_view trimmed(std::string_view text);

/// In capitals, the same in every locale.
std::string upper(std::string_view text);

}

}
