#include "app/editor/Keys.h"

#include "platform/base/RawText.h"
#include "platform/base/Text.h"
#include "platform/store/SettingsStore.h"

#include <algorithm>

namespace murbo {
namespace {

constexpr const char* settingsKey = "keys";
constexpr std::size_t count = rawTexts(Command{}).size();

struct Standard {
    std::string_view title;
    std::string_view key;
};

constexpr std::array<Standard, count> standards{{{"Play or Pause", "space"},
                                                 {"Play Backward, Faster Each Press", "j"},
                                                 {"Stop", "k"},
                                                 {"Play Forward, Faster Each Press", "l"},
                                                 {"Mark Start", "i"},
                                                 {"Mark End", "o"},
                                                 {"Mark the Whole Clip", "x"},
                                                 {"Add to End", "e"},
                                                 {"Insert at Playhead", "w"},
                                                 {"Select Tool", "a"},
                                                 {"Trim Tool", "t"},
                                                 {"Blade Tool", "b"},
                                                 {"Hand Tool", "h"},
                                                 {"Skimming", "s"},
                                                 {"Snapping", "n"},
                                                 {"Remove Cut, or Reject Clip", "delete"},
                                                 {"Favourite", "f"},
                                                 {"Clear Rating", "u"},
                                                 {"Cut to Split", "1"},
                                                 {"Cut to Content", "2"},
                                                 {"Cut to Face", "3"},
                                                 {"Punch In or Out", "z"},
                                                 {"Add Clip Mark", "m"},
                                                 {"Add Bookmark", "p"}}};

/// The code point of a text that is exactly one.
std::optional<char32_t> onlyCharacter(const std::string& text) {
    if (text.empty() || !Text::isUtf8(text)) return {};
    const auto first = static_cast<unsigned char>(text[0]);
    const std::size_t length = first < 0x80 ? 1 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
    if (text.size() != length) return {};
    char32_t point = length == 1 ? first : first & (0xFFU >> (length + 1));
    for (std::size_t at = 1; at < length; ++at)
        point = point << 6 | (static_cast<unsigned char>(text[at]) & 0x3F);
    return point;
}

}

Keys& Keys::standard() {
    static Keys keys(SettingsStore::standard());
    return keys;
}

Keys::Keys(SettingsStore& store)
    : settings(store), bindings(store.textMap(settingsKey).value_or(Bindings())) {}

std::string_view Keys::title(Command command) {
    return standards[static_cast<std::size_t>(command)].title;
}

std::string_view Keys::standardKey(Command command) {
    return standards[static_cast<std::size_t>(command)].key;
}

std::string Keys::key(Command command) const {
    const auto bound = bindings.find(std::string(rawText(command)));
    return bound == bindings.end() ? std::string(standardKey(command)) : bound->second;
}

std::optional<Command> Keys::command(const std::string& pressed) const {
    for (std::size_t at = 0; at < count; ++at)
        if (const auto command = static_cast<Command>(at); key(command) == pressed) return command;
    return {};
}

std::optional<Command> Keys::bind(Command command, const std::string& pressed) {
    const auto other = this->command(pressed);
    const bool swaps = other && *other != command;
    auto next = bindings;
    if (swaps) put(next, *other, key(command));
    put(next, command, pressed);
    keep(std::move(next));
    return swaps ? other : std::nullopt;
}

void Keys::useStandard() {
    keep({});
}

void Keys::put(Bindings& bindings, Command command, const std::string& pressed) {
    const std::string text(rawText(command));
    if (pressed == standardKey(command))
        bindings.erase(text);
    else
        bindings[text] = pressed;
}

void Keys::keep(Bindings next) {
    settings.set(settingsKey, next); // may throw: keys stay what the settings hold
    bindings = std::move(next);
}

std::optional<std::string> Keys::name(const std::string& typed) {
    if (typed == "space" || typed == "delete") return typed;
    if (typed == " ") return "space";
    if (typed == "\b" || typed == "\x7F") return "delete";
    constexpr char32_t firstPrinted = 0x21;
    constexpr char32_t lastPrinted = 0xF6FF; // beyond it stand function keys
    auto lower = Text::lowercased(typed);
    const auto point = onlyCharacter(lower);
    if (!point || *point < firstPrinted || *point > lastPrinted) return {};
    return lower;
}

}
