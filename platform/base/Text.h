#pragma once

#include <string>
#include <string_view>

namespace murbo {

/// What the rooms need of UTF-8 texts. Bytes that are not UTF-8 never harm; they count as U+FFFD.
namespace Text {

/// Without the blanks and tabs at both ends (Unicode's space separators); line breaks stay.
std::string trimmedOfBlanks(std::string_view text);

/// Without any white space at both ends, line breaks included.
std::string trimmed(std::string_view text);

/// Without any white space at all.
std::string withoutWhiteSpace(std::string_view text);

/// As many whole characters (code points) from the start as take at most `most` bytes.
std::string beginning(std::string_view text, std::size_t max);

/// In lower case, by the rules that hold in every language.
std::string lowercased(std::string_view text);

/// Whether both are the same text but for upper and lower case (Unicode's full case folding).
bool sameIgnoringCase(std::string_view one, std::string_view other);

bool isUtf8(std::string_view text);

/// The text with every stretch that is not UTF-8 replaced by U+FFFD.
std::string repaired(std::string_view text);

}

}
