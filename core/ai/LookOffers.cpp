#include "core/ai/LookOffers.h"

#include "core/playbooks/Playbooks.h"
#include "platform/base/Problem.h"

#include <algorithm>
#include <set>

namespace murbo {
namespace {

constexpr double usualLength = 3; // seconds
constexpr double shortest = 0.2;

LookKit::Offer offer(const Book& book) {
    return {.id = book.id(),
            .name = book.playbook.name,
            .about = book.playbook.about.value_or(""),
            .version = book.version(),
            .seconds = std::max(book.playbook.length.value_or(usualLength), shortest),
            .mute = book.playbook.mute};
}

using Versions = std::set<std::pair<std::string, std::int64_t>>;

Versions used(const Look& look) {
    Versions found;
    for (const auto& shot : look.shots)
        if (shot.playbook) found.emplace(*shot.playbook, shot.version.value_or(1));
    for (const auto& overlay : look.overlays) found.emplace(overlay.playbook, overlay.version);
    return found;
}

}

LookOffers LookOffers::ofLibrary() {
    LookOffers all;
    for (const auto& book : Playbooks::library())
        (book.playbook.kind == "layout" ? all.layouts : all.overlays).push_back(offer(book));
    return all;
}

void LookOffers::pin(const Look& look, const std::filesystem::path& package) {
    const auto versions = used(look);
    for (const auto& book : Playbooks::library()) {
        if (!versions.contains({book.id(), book.version()})) continue;
        try {
            Playbooks::copy(book, package);
        } catch (const Problem&) {
            continue;
        }
    }
}

}
