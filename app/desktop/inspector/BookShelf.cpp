#include "app/desktop/inspector/BookShelf.h"

#include "core/playbooks/Playbooks.h"

namespace murbo {

BookShelf::BookShelf(std::optional<std::filesystem::path> project) : package(std::move(project)) {}

const Book* BookShelf::book(const std::string& id, std::optional<std::int64_t> version) {
    const auto key = std::pair(id, version.value_or(1));
    auto found = books.find(key);
    if (found == books.end()) found = books.emplace(key, Playbooks::book(id, version, package)).first;
    return found->second ? &*found->second : nullptr;
}

std::optional<std::int64_t> BookShelf::newer(const std::string& id, std::int64_t version) const {
    const auto found = Playbooks::find(id);
    if (!found || found->version() == version) return {};
    return found->version();
}

}
