#include "core/render/plan/PlanBooks.h"

#include "core/playbooks/Playbooks.h"

namespace murbo {

namespace {

constexpr std::size_t maxBooks = 1000; // each is a file to be read
// Of all together: one file may hold hundreds of thousands of layers, keys and parameters.
constexpr std::size_t maxParts = 20'000;

std::size_t partsOf(const Playbook& playbook) {
    std::size_t parts = playbook.layers.size() + (playbook.params ? playbook.params->size() : 0);
    for (const auto& layer : playbook.layers) parts += layer.keys ? layer.keys->size() : 0;
    return parts;
}

}

const Shared<Book>* PlanBooks::find(const std::string& id, std::optional<std::int64_t> version) {
    const Key key{id, version};
    auto found = known.find(key);
    if (found == known.end()) {
        if (known.size() >= maxBooks) return nullptr;
        found = known.emplace(key, resolved(key)).first;
    }
    return found->second ? &*found->second : nullptr;
}

std::optional<Shared<Book>> PlanBooks::resolved(const Key& key) {
    auto book = Playbooks::book(key.first, key.second, package);
    if (!book) return std::nullopt;
    const std::size_t more = partsOf(book->playbook);
    if (parts + more > maxParts) return std::nullopt;
    parts += more;
    return Shared<Book>(std::move(*book));
}

}
