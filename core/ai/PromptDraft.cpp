#include "core/ai/PromptDraft.h"

#include <algorithm>

namespace murbo {

namespace {

std::string shownAs(const PromptDraft::Thing& thing, const std::vector<PromptDraft::NamedThing>& named) {
    const auto shown = "“" + thing.name + "”";
    const bool taken = std::any_of(named.begin(), named.end(), [&](const auto& other) {
        return other.shown == shown && other.tag != thing.tag;
    });
    return taken ? shown + " (" + thing.tag + ")" : shown;
}

}

void PromptDraft::put(const std::vector<Thing>& things) {
    std::string added;
    for (const auto& thing : things) {
        named.push_back({shownAs(thing, named), thing.tag});
        added += (added.empty() ? "" : ", ") + named.back().shown;
    }
    if (!text.empty() && !text.ends_with(' ') && !added.empty()) text += ' ';
    text += added;
}

std::string PromptDraft::written() const {
    auto longest = named;
    std::stable_sort(longest.begin(), longest.end(), [](const auto& one, const auto& other) {
        return one.shown.size() > other.shown.size();
    });
    auto result = text;
    for (const auto& [shown, tag] : longest)
        for (auto at = result.find(shown); at != result.npos; at = result.find(shown, at + tag.size()))
            result.replace(at, shown.size(), tag);
    return result;
}

}
