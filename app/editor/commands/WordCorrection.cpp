#include "app/editor/commands/WordCorrection.h"

#include "platform/text/Unicode.h"

#include <algorithm>

namespace murbo {
namespace {

constexpr std::size_t maxWords = 400; // of a line that is compared word by word

/// Words and marks, without the blanks between them, as ranges of bytes.
struct SaidWord {
    std::size_t from = 0;
    std::size_t to = 0;
};
using SaidWords = std::vector<SaidWord>;

template <class Test>
bool any(std::string_view text, Test test) {
    for (std::size_t at = 0; at < text.size();)
        if (test(Unicode::next(text, at))) return true;
    return false;
}

bool isWord(std::string_view text) {
    return any(text, [](char32_t one) { return !Unicode::isBlank(one) && !Unicode::isMark(one); });
}

SaidWords wordsOf(std::string_view text) {
    SaidWords words;
    std::size_t from = 0;
    for (const auto to : Unicode::wordEnds(text)) {
        const auto one = text.substr(from, to - from);
        if (any(one, [](char32_t character) { return !Unicode::isBlank(character); }))
            words.push_back({from, to});
        from = to;
    }
    return words;
}

/// How many words two texts have in common, in order, from each pair of places on.
class CommonWords {
public:
    CommonWords(std::string_view before, std::string_view after)
        : one(before), other(after), old(wordsOf(before)), now(wordsOf(after)) {
        if (old.size() > maxWords || now.size() > maxWords) return;
        counts.assign((old.size() + 1) * (now.size() + 1), 0);
        for (auto i = old.size(); i-- > 0;)
            for (auto j = now.size(); j-- > 0;)
                at(i, j) = same(i, j) ? at(i + 1, j + 1) + 1 : std::max(at(i + 1, j), at(i, j + 1));
    }

    std::vector<WordCorrection> changes() {
        std::vector<WordCorrection> list;
        std::size_t i = 0, j = 0, firstOld = 0, firstNew = 0;
        const auto close = [&] {
            if (i > firstOld && j > firstNew)
                add(list, slice(one, old[firstOld], old[i - 1]), slice(other, now[firstNew], now[j - 1]));
        };
        while (!counts.empty() && (i < old.size() || j < now.size())) {
            if (i < old.size() && j < now.size() && same(i, j)) {
                close();
                firstOld = ++i;
                firstNew = ++j;
            } else if (j == now.size() || (i < old.size() && at(i + 1, j) >= at(i, j + 1))) {
                ++i;
            } else {
                ++j;
            }
        }
        close();
        return list;
    }

private:
    static std::string_view slice(std::string_view text, const SaidWord& first, const SaidWord& last) {
        return text.substr(first.from, last.to - first.from);
    }
    static void add(std::vector<WordCorrection>& list, std::string_view from, std::string_view to) {
        WordCorrection made{std::string(from), std::string(to)};
        if (isWord(from) && isWord(to) && std::ranges::find(list, made) == list.end())
            list.push_back(std::move(made));
    }
    std::uint32_t& at(std::size_t i, std::size_t j) { return counts[i * (now.size() + 1) + j]; }
    bool same(std::size_t i, std::size_t j) const {
        return slice(one, old[i], old[i]) == slice(other, now[j], now[j]);
    }

    std::string_view one, other;
    SaidWords old, now;
    std::vector<std::uint32_t> counts;
};

bool isCapital(char one) {
    return one >= 'A' && one <= 'Z';
}
char small(char one) {
    return isCapital(one) ? static_cast<char>(one - 'A' + 'a') : one;
}
bool isLetter(char one) {
    return small(one) >= 'a' && small(one) <= 'z';
}

/// Where a text holds another, from a place on, in either case.
std::size_t placeOf(std::string_view text, std::string_view wanted, std::size_t from) {
    const auto found =
        std::search(text.begin() + static_cast<std::ptrdiff_t>(from), text.end(), wanted.begin(),
                    wanted.end(), [](char a, char b) { return small(a) == small(b); });
    return found == text.end() ? std::string_view::npos : static_cast<std::size_t>(found - text.begin());
}

/// As the correction has it; but a capital that only began a sentence goes with what stands there.
std::string cased(const WordCorrection& correction, std::string_view found) {
    auto text = correction.to;
    const bool kept = isLetter(text[0]) && isLetter(correction.from[0]) && isLetter(found[0]) &&
                      isCapital(text[0]) == isCapital(correction.from[0]);
    if (kept && isCapital(found[0]) && !isCapital(text[0])) text[0] = static_cast<char>(text[0] - 'a' + 'A');
    if (kept && !isCapital(found[0])) text[0] = small(text[0]);
    return text;
}

}

std::vector<WordCorrection> WordCorrection::between(std::string_view before, std::string_view after) {
    return CommonWords(before, after).changes();
}

WordCorrection::Righted WordCorrection::in(std::string_view text) const {
    Righted corrected;
    if (from.empty() || to.empty()) return {std::string(text)};
    auto at = placeOf(text, from, 0);
    if (at == std::string_view::npos) return {std::string(text)};
    const auto ends = Unicode::wordEnds(text);
    // A sign of repetition belongs to the word before it, over the blank between them.
    const auto isEnd = [&](std::size_t place) {
        const bool byBlank =
            place < text.size() && (text[place] == ' ' || (place > 0 && text[place - 1] == ' '));
        return place == 0 || byBlank || std::binary_search(ends.begin(), ends.end(), place);
    };
    std::size_t done = 0;
    for (; at != std::string_view::npos; at = placeOf(text, from, at)) {
        const auto found = text.substr(at, from.size());
        const auto right = cased(*this, found);
        if (!isEnd(at) || !isEnd(at + found.size()) || found == right) {
            ++at;
            continue;
        }
        corrected.text.append(text.substr(done, at - done)).append(right);
        done = at += found.size();
        ++corrected.places;
    }
    corrected.text.append(text.substr(done));
    return corrected;
}

int WordCorrection::places(const Project& project) const {
    int count = 0;
    for (const auto& [source, transcript] : project.transcripts)
        for (const auto& line : transcript.lines)
            if (!line.isGone() && placeOf(line.text, from, 0) != std::string_view::npos)
                count += in(line.text).places;
    return count;
}

void WordCorrection::apply(Project& project) const {
    for (auto& [source, transcript] : project.transcripts)
        for (std::size_t at = 0; at < transcript.lines.size(); ++at) {
            const auto& line = transcript.lines[at];
            if (line.isGone() || placeOf(line.text, from, 0) == std::string_view::npos) continue;
            auto corrected = in(line.text);
            if (corrected.places > 0) transcript.lines.edit()[at].text = std::move(corrected.text);
        }
    for (std::size_t at = 0; at < project.videos.size(); ++at) {
        const auto& look = project.videos[at].look;
        if (!look) continue;
        auto lines = look->captions.lines;
        for (std::size_t one = 0; one < lines.size(); ++one) {
            if (!lines[one].pieces) continue;
            for (std::size_t piece = 0; piece < lines[one].pieces->size(); ++piece) {
                auto corrected = in((*lines[one].pieces)[piece].text);
                if (corrected.places > 0) (*lines.edit()[one].pieces)[piece].text = std::move(corrected.text);
            }
        }
        if (lines != look->captions.lines) project.videos.edit()[at].look->captions.lines = std::move(lines);
    }
}

}
