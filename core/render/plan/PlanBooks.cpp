#include "core/render/plan/PlanBooks.h"

#include "core/playbooks/Playbooks.h"

namespace murbo {

namespace {

constexpr std::size_t mostBooks = 1000;    // each is a file to be read
constexpr std::size_t mostLayers = 20'000; // of all together: one file may hold hundreds of thousands

}

const Shared<Book>* PlanBooks::find(const std::string& id, std::optional<std::int64_t> version) {
    const Key key{id, version};
    auto found = known.find(key);
    if (found == known.end()) {
        if (known.size() >= mostBooks) return nullptr;
        found = known.emplace(key, resolved(key)).first;
    }
    return found->second ? &*found->second : nullptr;
}

std::optional<Shared<Book>> PlanBooks::resolved(const Key& key) {
    auto book = Playbooks::book(key.first, key.second, package);
    if (!book || layers + book->playbook.layers.size() > mostLayers) return std::nullopt;
    layers += book->playbook.layers.size();
    return Shared<Book>(std::move(*book));
}

}
