#include "core/ai/StillThere.h"

#include <algorithm>
#include <set>

#include <nlohmann/json.hpp>

namespace murbo::StillThere {

namespace {

using nlohmann::json;

/// A text that is a tag of a line, as the project has that line now.
void bringUp(std::string& text, const Said& told, const Said& now) {
    const auto tag = Said::tag(text);
    const auto* meant = tag ? told.tagged(*tag) : nullptr;
    if (!meant) return;
    const auto* same = now.of(meant->id);
    text = same && !same->gone ? same->tag : *tag + " (gone)";
}

void bringUp(json& value, const Said& told, const Said& now) {
    if (value.is_string()) return bringUp(value.get_ref<std::string&>(), told, now);
    if (value.is_structured())
        for (auto& inner : value) bringUp(inner, told, now);
}

/// What of two cuts is the same when the lines that they play are.
bool sameLines(const Cut& one, const Cut& other, const Said& said) {
    if (one.generator || other.generator) return one.id == other.id;
    const auto ends = said.ends(one);
    const auto others = said.ends(other);
    if (!ends || !others) return one.id == other.id;
    return ends->first == others->first && ends->last == others->last;
}

}

json tags(const json& reply, const Said& told, const Said& now) {
    auto brought = reply;
    bringUp(brought, told, now);
    return brought;
}

std::vector<Cut> cuts(std::vector<Cut> cuts, const Said& told, const Project& now) {
    std::set<UUID> clips;
    for (const auto& clip : now.clips)
        if (now.source(clip.source)) clips.insert(clip.id);
    std::erase_if(cuts, [&](const Cut& cut) {
        const auto ends = told.ends(cut);
        return ends && !clips.contains(ends->first->clip);
    });
    return cuts;
}

bool samePlay(const List<Cut>& one, const List<Cut>& other, const Said& said) {
    return one.size() == other.size() &&
           std::equal(one.begin(), one.end(), other.begin(),
                      [&](const Cut& a, const Cut& b) { return sameLines(a, b, said); });
}

}
