#include "platform/text/FontChoice.h"

#include "platform/text/FontSet.h"
#include "platform/text/Unicode.h"

#include <fontconfig/fontconfig.h>
#include <unicode/uchar.h>
#include <unicode/uscript.h>

namespace murbo {

namespace {

constexpr char32_t emojiSelector = 0xFE0F;
constexpr char32_t textSelector = 0xFE0E;
constexpr char32_t keycap = 0x20E3;

UScriptCode scriptOf(char32_t character) {
    UErrorCode status = U_ZERO_ERROR;
    return uscript_getScript(UChar32(character), &status);
}

bool isThai(char32_t character) {
    return character >= 0x0E00 && character <= 0x0E7F;
}
bool isKana(char32_t character) {
    const auto script = scriptOf(character);
    return script == USCRIPT_HIRAGANA || script == USCRIPT_KATAKANA;
}
bool isHan(char32_t character) {
    return scriptOf(character) == USCRIPT_HAN;
}
bool isHangul(char32_t character) {
    return scriptOf(character) == USCRIPT_HANGUL;
}
bool isBopomofo(char32_t character) {
    return scriptOf(character) == USCRIPT_BOPOMOFO;
}
bool isIdeographic(char32_t character) {
    return isHan(character) || isKana(character) || (character >= 0x3000 && character <= 0x30FF) ||
           (character >= 0xFF00 && character <= 0xFFEF);
}
bool isAny(char32_t) {
    return true;
}

/// Takes part in a letter without being drawn: joiners, selectors, controls.
bool isUnseen(char32_t character) {
    return u_hasBinaryProperty(UChar32(character), UCHAR_DEFAULT_IGNORABLE_CODE_POINT) ||
           u_charType(UChar32(character)) == U_CONTROL_CHAR || Unicode::isBlank(character);
}

std::vector<char32_t> characters(std::string_view text) {
    std::vector<char32_t> found;
    for (std::size_t at = 0; at < text.size();) found.push_back(Unicode::next(text, at));
    return found;
}

bool any(const std::vector<char32_t>& characters, bool (*test)(char32_t)) {
    return std::any_of(characters.begin(), characters.end(), test);
}

/// Whether a letter asks to be drawn as a colour picture (UTS #51).
bool isEmoji(const std::vector<char32_t>& letter) {
    const auto holds = [&](char32_t wanted) {
        return std::find(letter.begin(), letter.end(), wanted) != letter.end();
    };
    if (holds(textSelector)) return false;
    return holds(emojiSelector) || holds(keycap) || any(letter, [](char32_t character) {
               return bool(u_hasBinaryProperty(UChar32(character), UCHAR_EMOJI_PRESENTATION)) ||
                      bool(u_hasBinaryProperty(UChar32(character), UCHAR_EMOJI_MODIFIER));
           });
}

// The rounded faces call very different stems by one number. Measured at the stem of their "l", in
// thousandths of the em: Nunito has 125 at 700 and 151 at 800; Mitr 128 at 400 and 165 at 500; M PLUS 110 at
// 500, 140 at 700.
constexpr int thaiLighter = 300;
constexpr int japaneseLighter = 60;

/// A family in the order of preference, and the letters that it is taken for.
struct Step {
    const FontSet::Family* family = nullptr;
    int weight = 400;
    const FcCharSet* letters = nullptr;
    bool (*meant)(char32_t) = isAny;

    explicit Step(const FontSet::Family& taken, int asked, bool (*test)(char32_t) = isAny)
        : family(&taken), weight(std::max(asked, 100)), letters(taken.letters(weight)), meant(test) {}

    bool has(char32_t character) const {
        return letters && meant(character) && FcCharSetHasChar(letters, FcChar32(character));
    }
    bool hasAll(const std::vector<char32_t>& letter) const {
        return std::all_of(letter.begin(), letter.end(),
                           [&](char32_t character) { return isUnseen(character) || has(character); });
    }
};

/// How willingly a family nobody asked for is taken: plain sans-serif faces first.
int rank(const std::string& name) {
    const auto holds = [&](const char* part) { return name.find(part) != name.npos; };
    if (holds("Mono") || holds("Italic") || holds("Condensed")) return 4;
    if (name.starts_with("Noto Sans ")) return 0;
    if (holds("Sans")) return 1;
    return name.starts_with("Noto") ? 2 : 3;
}

/// Every family there is, the likeliest stand-ins first.
const std::vector<const FontSet::Family*>& standIns() {
    static const auto all = [] {
        std::vector<const FontSet::Family*> found;
        for (const auto& [lower, family] : FontSet::shared().families()) found.push_back(&family);
        std::stable_sort(found.begin(), found.end(),
                         [](auto* a, auto* b) { return rank(a->name) < rank(b->name); });
        return found;
    }();
    return all;
}

/// The order of preference for one text.
class Cascade {
public:
    Cascade(const std::vector<char32_t>& text, const Font& font) : weight(font.weight) {
        for (const auto& family : font.families) add(family);
        add(FontSet::rounded);
        add(FontSet::roundedThai, isThai, weight - thaiLighter);
        addIdeographic(text);
        for (const char* family : {"Quicksand", "Comfortaa", "Noto Sans", "Noto Sans Thai", "DejaVu Sans"})
            add(family);
        for (const auto* family : standIns())
            if (family->colour) steps.emplace_back(*family, weight);
    }

    std::string language = "en";

    /// What a letter is set in; null where nothing has it.
    const Step* choose(const std::vector<char32_t>& letter) {
        const bool emoji = isEmoji(letter);
        if (emoji)
            for (const Step& step : steps)
                if (step.family->colour && step.has(letter.front())) return &step;
        if (const Step* step = chooseText(letter, steps)) return step;
        return chooseText(letter, rest());
    }

    /// What blanks are set in, and what can't be drawn; null where there is no font at all.
    const Step* plain() {
        for (const Step& step : steps)
            if (step.has(U' ') && !step.family->colour) return &step;
        return rest().empty() ? nullptr : &rest().front();
    }

private:
    int weight;
    std::vector<Step> steps;
    std::vector<Step> others;

    void add(std::string_view name) { add(name, isAny, weight); }
    void add(std::string_view name, bool (*meant)(char32_t), int asked) {
        if (const auto* family = FontSet::shared().find(name)) steps.emplace_back(*family, asked, meant);
    }

    /// One hand for a whole text: Chinese that the Japanese face knows in part is set in a Chinese face
    /// throughout. (A text of nothing but shared characters could be either; it takes the rounded face.)
    void addIdeographic(const std::vector<char32_t>& text) {
        const bool kana = any(text, isKana);
        if (any(text, isHangul))
            language = "ko";
        else if (kana)
            language = "ja";
        else if (any(text, isBopomofo))
            language = "zh-tw";
        else if (any(text, isHan))
            language = knowsAllHan(text) ? "ja" : "zh-cn";
        if (kana || language == "ja") add(FontSet::roundedJapanese, isIdeographic, weight - japaneseLighter);
        const auto meant = [](char32_t character) {
            return isIdeographic(character) || isHangul(character) || isBopomofo(character);
        };
        add(language == "ko"      ? "Noto Sans CJK KR"
            : language == "zh-cn" ? "Noto Sans CJK SC"
            : language == "zh-tw" ? "Noto Sans CJK TC"
                                  : "Noto Sans CJK JP",
            meant, weight);
    }

    bool knowsAllHan(const std::vector<char32_t>& text) const {
        const auto* japanese = FontSet::shared().find(FontSet::roundedJapanese);
        if (!japanese) return false;
        const Step step(*japanese, weight);
        return std::all_of(text.begin(), text.end(),
                           [&](char32_t character) { return !isHan(character) || step.has(character); });
    }

    /// Looked at only for letters that none of the first has.
    const std::vector<Step>& rest() {
        if (others.empty())
            for (const auto* family : standIns()) others.emplace_back(*family, weight);
        return others;
    }

    /// All of a letter from one family where that can be, or else what it stands on.
    static const Step* chooseText(const std::vector<char32_t>& letter, const std::vector<Step>& steps) {
        for (const Step& step : steps)
            if (step.hasAll(letter)) return &step;
        for (const Step& step : steps)
            if (step.has(letter.front())) return &step;
        return nullptr;
    }
};

}

FontChoice FontChoice::choose(std::string_view text, const Font& font) {
    Cascade cascade(characters(text), font);
    FontChoice choice;
    choice.language = cascade.language;
    const Step* plain = cascade.plain();
    if (!plain) return choice;
    std::size_t from = 0;
    for (const std::size_t to : Unicode::characterEnds(text)) {
        const auto letter = characters(text.substr(from, to - from));
        const Step* step = isUnseen(letter.front()) ? plain : cascade.choose(letter);
        if (!step) choice.missing.push_back(letter.front());
        const Step& taken = step ? *step : *plain;
        if (!choice.runs.empty() && choice.runs.back().family == taken.family->name)
            choice.runs.back().to = to;
        else
            choice.runs.push_back({from, to, taken.family->name, taken.weight});
        from = to;
    }
    return choice;
}

}
