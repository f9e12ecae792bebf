#pragma once

#include "core/playbooks/Book.h"

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <utility>

namespace murbo {

/// The playbooks that the inspector shows, each read once: a project's copy of a version never changes.
class BookShelf {
public:
    explicit BookShelf(std::optional<std::filesystem::path> package);

    /// The version that plays; null where it is not found.
    const Book* book(const std::string& id, std::optional<std::int64_t> version);
    /// The version in the library, where it is another one.
    std::optional<std::int64_t> newer(const std::string& id, std::int64_t version) const;

private:
    std::optional<std::filesystem::path> package;
    std::map<std::pair<std::string, std::int64_t>, std::optional<Book>> books;
};

}
