#include "platform/text/Unicode.h"

#include "platform/base/Problem.h"

#include <unicode/brkiter.h>
#include <unicode/bytestream.h>
#include <unicode/casemap.h>
#include <unicode/uchar.h>
#include <unicode/uscript.h>
#include <unicode/utf8.h>

namespace murbo::Unicode {

namespace {

constexpr char32_t thaiRepetition = 0x0E46;
constexpr char32_t textSelector = 0xFE0E;
constexpr char32_t emojiSelector = 0xFE0F;
constexpr char32_t keycap = 0x20E3;

/// A text as ICU reads it, with the way back to bytes.
struct Wide {
    std::u16string units;
    std::vector<std::uint32_t> bytes; ///< of each unit's start, and of the end

    explicit Wide(std::string_view text) {
        units.reserve(text.size());
        bytes.reserve(text.size() + 1);
        for (std::size_t at = 0; at < text.size();) append(text, at);
        bytes.push_back(std::uint32_t(text.size()));
    }

private:
    void append(std::string_view text, std::size_t& at) {
        const auto start = std::uint32_t(at);
        const char32_t character = next(text, at);
        for (int unit = 0; unit < U16_LENGTH(character); ++unit) bytes.push_back(start);
        if (character > 0xFFFF) units.push_back(U16_LEAD(character));
        units.push_back(character > 0xFFFF ? char16_t(U16_TRAIL(character)) : char16_t(character));
    }
};

using Iterator = std::unique_ptr<icu::BreakIterator>;

Iterator made(icu::BreakIterator* (*make)(const icu::Locale&, UErrorCode&), const char* locale) {
    UErrorCode status = U_ZERO_ERROR;
    Iterator iterator(make(icu::Locale(locale), status));
    if (U_FAILURE(status) || !iterator) throw Problem("The Unicode data for breaking text is missing.");
    return iterator;
}

// An iterator holds the text that it walks, so each thread has its own.
icu::BreakIterator& characters() {
    thread_local const Iterator iterator = made(icu::BreakIterator::createCharacterInstance, "");
    return *iterator;
}
icu::BreakIterator& words() {
    thread_local const Iterator iterator = made(icu::BreakIterator::createWordInstance, "th");
    return *iterator;
}
icu::BreakIterator& lines() {
    thread_local const Iterator iterator = made(icu::BreakIterator::createLineInstance, "th");
    return *iterator;
}

/// Adds the ends that `iterator` finds within the units from `from` to `to`, in bytes of the whole text.
void addEnds(icu::BreakIterator& iterator, const Wide& wide, std::size_t from, std::size_t to,
             std::vector<std::size_t>& ends) {
    // Read-only alias: nothing is copied. The iterator must not outlive it, so it is given an empty text
    // after.
    const icu::UnicodeString stretch(false, wide.units.data() + from, std::int32_t(to - from));
    iterator.setText(stretch);
    iterator.first();
    for (auto end = iterator.next(); end != icu::BreakIterator::DONE; end = iterator.next())
        ends.push_back(wide.bytes[from + std::size_t(end)]);
    static const icu::UnicodeString nothing;
    iterator.setText(nothing);
}

std::vector<std::size_t> allEnds(icu::BreakIterator& iterator, std::string_view text) {
    const Wide wide(text);
    std::vector<std::size_t> ends;
    addEnds(iterator, wide, 0, wide.units.size(), ends);
    return ends;
}

/// What a script border is judged by: letters of the scripts that are written without blanks and broken by a
/// dictionary, and letters and digits of all others.
enum class Kind { neutral, dictionary, other };

Kind kindOf(char32_t character) {
    if (u_isdigit(UChar32(character))) return Kind::other;
    if (u_getIntPropertyValue(UChar32(character), UCHAR_LINE_BREAK) == U_LB_COMPLEX_CONTEXT)
        return Kind::dictionary;
    return u_isalpha(UChar32(character)) ? Kind::other : Kind::neutral;
}

/// The units at which a Thai word meets a Latin one or a number without a blank between: "เกมROVกับ" would
/// come back as one word.
std::vector<std::size_t> scriptBorders(const std::u16string& units) {
    std::vector<std::size_t> borders;
    Kind before = Kind::neutral;
    for (std::size_t at = 0; at < units.size();) {
        const std::size_t start = at;
        UChar32 character;
        U16_NEXT(units.data(), at, units.size(), character);
        const Kind kind = kindOf(char32_t(character));
        if (kind != before && kind != Kind::neutral && before != Kind::neutral) borders.push_back(start);
        before = kind;
    }
    borders.push_back(units.size());
    return borders;
}

bool isAll(std::string_view text, bool (*test)(char32_t)) {
    for (std::size_t at = 0; at < text.size();)
        if (!test(next(text, at))) return false;
    return true;
}

bool isInvisible(char32_t character) {
    return u_hasBinaryProperty(UChar32(character), UCHAR_DEFAULT_IGNORABLE_CODE_POINT) && !isBlank(character);
}

/// Takes back the ends that part a repetition mark, or something invisible, from its word. The mark is
/// written against its word or after a blank: "ช้าๆ", "เด็ก ๆ".
std::vector<std::size_t> joined(std::string_view text, const std::vector<std::size_t>& ends) {
    const auto isRepetition = [](char32_t character) { return character == thaiRepetition; };
    std::vector<std::size_t> kept;
    std::size_t start = 0;
    for (const std::size_t end : ends) {
        const std::string_view segment = text.substr(start, end - start);
        const bool repetition = isAll(segment, isRepetition);
        if (!kept.empty() && (repetition || isAll(segment, isInvisible))) {
            const std::size_t before = kept.size() < 2 ? 0 : kept[kept.size() - 2];
            const bool behindBlank = isAll(text.substr(before, kept.back() - before), isBlank);
            if (repetition && behindBlank && kept.size() > 1) kept.pop_back();
            kept.pop_back();
        }
        kept.push_back(end);
        start = end;
    }
    return kept;
}

}

std::vector<std::size_t> characterEnds(std::string_view text) {
    return allEnds(characters(), text);
}

std::size_t characterCount(std::string_view text) {
    return characterEnds(text).size();
}

std::vector<std::size_t> wordEnds(std::string_view text) {
    const Wide wide(text);
    std::vector<std::size_t> ends;
    std::size_t from = 0;
    for (const std::size_t to : scriptBorders(wide.units)) {
        addEnds(words(), wide, from, to, ends);
        from = to;
    }
    return joined(text, ends);
}

std::vector<std::size_t> lineEnds(std::string_view text) {
    return allEnds(lines(), text);
}

char32_t next(std::string_view text, std::size_t& at) {
    UChar32 character;
    std::int32_t offset = 0;
    const auto rest = std::int32_t(std::min<std::size_t>(text.size() - at, 4));
    U8_NEXT_OR_FFFD(reinterpret_cast<const std::uint8_t*>(text.data()) + at, offset, rest, character);
    at += std::size_t(offset);
    return char32_t(character);
}

bool isBlank(char32_t character) {
    return u_isUWhiteSpace(UChar32(character));
}

bool isTrimmedBlank(char32_t character) {
    return character == U'\t' || u_charType(UChar32(character)) == U_SPACE_SEPARATOR;
}

bool isMark(char32_t character) {
    constexpr auto marks = U_GC_P_MASK | U_GC_S_MASK;
    return (U_MASK(u_charType(UChar32(character))) & marks) != 0;
}

namespace {

/// Whether one character as a person counts asks for a picture in colour (UTS #51).
bool isEmoji(std::string_view character) {
    bool emoji = false;
    for (std::size_t at = 0; at < character.size();) {
        const auto part = next(character, at);
        if (part == textSelector) return false;
        emoji = emoji || part == emojiSelector || part == keycap ||
                u_hasBinaryProperty(UChar32(part), UCHAR_EMOJI_PRESENTATION) ||
                u_hasBinaryProperty(UChar32(part), UCHAR_EMOJI_MODIFIER);
    }
    return emoji;
}

bool isBlankThroughout(std::string_view character) {
    for (std::size_t at = 0; at < character.size();)
        if (!isBlank(next(character, at))) return false;
    return true;
}

}

bool isOnlyEmoji(std::string_view text) {
    std::size_t from = 0;
    bool found = false;
    for (const std::size_t end : characterEnds(text)) {
        const auto character = text.substr(from, end - from);
        from = end;
        if (isBlankThroughout(character)) continue;
        if (!isEmoji(character)) return false;
        found = true;
    }
    return found;
}

std::string_view trimmed(std::string_view text) {
    std::size_t from = 0;
    std::size_t to = 0;
    bool inside = false;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t start = at;
        if (isTrimmedBlank(next(text, at))) continue;
        if (!inside) from = start;
        inside = true;
        to = at;
    }
    return text.substr(from, to - from);
}

std::string upper(std::string_view text) {
    UErrorCode status = U_ZERO_ERROR;
    std::string capitals;
    icu::StringByteSink<std::string> sink(&capitals, std::int32_t(text.size()));
    icu::CaseMap::utf8ToUpper("", 0, icu::StringPiece(text.data(), std::int32_t(text.size())), sink, nullptr,
                              status);
    return U_SUCCESS(status) ? capitals : std::string(text);
}

}
