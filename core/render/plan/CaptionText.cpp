#include "core/render/plan/CaptionText.h"

#include "platform/text/Unicode.h"

namespace murbo::CaptionText {

namespace {

constexpr std::int64_t phraseLength = 24;
/// What breaking at a space is worth, in characters of imbalance.
constexpr std::int64_t spaceWorth = 5;
constexpr std::string_view thaiRepetition = "\u0E46";

std::string_view slice(std::string_view text, Range range) {
    return text.substr(range.from, range.to - range.from);
}

template <class Test>
bool each(std::string_view text, Test test) {
    for (std::size_t at = 0; at < text.size();)
        if (!test(Unicode::next(text, at))) return false;
    return true;
}

bool isBlank(std::string_view unit) {
    return each(unit, Unicode::isBlank);
}

bool isLatin(std::string_view unit) {
    return each(unit, [](char32_t character) { return character < 128 && !Unicode::isBlank(character); });
}

bool isThai(std::string_view text) {
    return !each(text, [](char32_t character) { return character < 0x0E00 || character > 0x0E7F; });
}

/// Whether every character begins as punctuation or a symbol does; an emoji of several code points counts
/// once.
bool isMarks(std::string_view unit) {
    if (unit.empty()) return false;
    std::size_t start = 0;
    for (const std::size_t end : Unicode::characterEnds(unit)) {
        if (!Unicode::isMark(Unicode::next(unit, start))) return false;
        start = end;
    }
    return true;
}

bool endsLatin(std::string_view unit) {
    const auto ends = Unicode::characterEnds(unit);
    return !ends.empty() && isLatin(unit.substr(ends.size() < 2 ? 0 : ends[ends.size() - 2]));
}

/// Whether `word` continues the Latin phrase that ends before the blank at the back of `units`.
bool continuesPhrase(std::string_view text, const std::vector<Range>& units, Range word, std::int64_t max) {
    if (units.size() < 2 || !isBlank(slice(text, units.back())) || !isLatin(slice(text, word))) return false;
    const Range phrase = units[units.size() - 2];
    return endsLatin(slice(text, phrase)) &&
           std::int64_t(count(text.substr(phrase.from, word.to - phrase.from))) <= max;
}

/// The number of characters before each unit, and that of all.
std::vector<std::int64_t> runningCounts(std::string_view text, const std::vector<Range>& units) {
    std::vector<std::int64_t> counts{0};
    for (const Range unit : units) counts.push_back(counts.back() + std::int64_t(count(slice(text, unit))));
    return counts;
}

/// The best unit to begin a piece with, from `from` on: near `target` characters, at a space if one is near.
std::size_t bestBreak(const std::vector<std::int64_t>& counts, const std::vector<bool>& blanks,
                      std::size_t from, std::int64_t target) {
    std::size_t best = from;
    std::int64_t lowest = std::numeric_limits<std::int64_t>::max();
    // Counts only grow: where even a space would no longer make up for the distance, nothing better comes.
    for (auto unit = from; unit < blanks.size() && counts[unit] - target - spaceWorth < lowest; ++unit) {
        const bool atSpace = blanks[unit] || blanks[unit - 1];
        const std::int64_t score = std::abs(counts[unit] - target) - (atSpace ? spaceWorth : 0);
        if (score < lowest) best = unit;
        lowest = std::min(lowest, score);
    }
    return best;
}

/// The units that begin the second and further pieces.
std::vector<std::size_t> breaks(std::string_view text, const std::vector<Range>& units, std::int64_t max) {
    const auto counts = runningCounts(text, units);
    std::vector<bool> blanks;
    for (const Range unit : units) blanks.push_back(isBlank(slice(text, unit)));
    const std::int64_t total = counts.back();
    const std::int64_t parts = (total + max - 1) / max;
    std::vector<std::size_t> found;
    for (std::int64_t part = 1; part < parts; ++part) {
        const std::size_t from = found.empty() ? 1 : found.back() + 1;
        if (from >= units.size()) break;
        found.push_back(bestBreak(counts, blanks, from, total * part / parts));
    }
    return found;
}

}

std::size_t count(std::string_view text) {
    return Unicode::characterCount(text);
}

std::string said(std::string_view text) {
    std::string kept;
    std::size_t at = 0;
    while (at < text.size()) {
        const std::size_t open = text.find('[', at);
        const std::size_t close = open == text.npos ? open : text.find(']', open);
        if (close == text.npos) break;
        kept.append(text.substr(at, open - at)).append(" ");
        at = close + 1;
    }
    kept.append(text.substr(at));
    return std::string(Unicode::trimmed(kept));
}

std::vector<std::string> pieces(const std::string& text, std::int64_t max) {
    if (max >= std::int64_t(count(text))) return {text};
    const auto all = units(text, phraseLength);
    auto starts = breaks(text, all, std::max<std::int64_t>(max, 1));
    starts.push_back(all.size());
    std::vector<std::string> found;
    std::size_t from = 0;
    for (const std::size_t start : starts) {
        const std::size_t to = start < all.size() ? all[start].from : text.size();
        const auto piece = Unicode::trimmed(std::string_view(text).substr(from, to - from));
        if (!piece.empty()) found.emplace_back(piece);
        from = to;
    }
    return found.empty() ? std::vector<std::string>{text} : found;
}

std::vector<Range> units(std::string_view text, std::int64_t max) {
    const bool thai = isThai(text);
    std::vector<Range> found;
    std::size_t from = 0;
    for (const std::size_t to : Unicode::wordEnds(text)) {
        const Range unit{from, to};
        const std::string_view characters = slice(text, unit);
        from = to;
        if (!found.empty() &&
            (characters == thaiRepetition || (isMarks(characters) && !isBlank(slice(text, found.back()))))) {
            found.back().to = to;
        } else if (thai && continuesPhrase(text, found, unit, max)) {
            found.pop_back();
            found.back().to = to;
        } else {
            found.push_back(unit);
        }
    }
    return found;
}

std::vector<Range> words(std::string_view text) {
    auto found = units(text, phraseLength);
    std::erase_if(found, [&](Range unit) { return isBlank(slice(text, unit)); });
    return found;
}

}
