#pragma once

#include "core/playbooks/Book.h"
#include "platform/base/Shared.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <utility>

namespace murbo {

/// The playbooks of one plan, each looked up once however often it is placed. Bounded, whatever a file asks
/// for: what lies beyond counts as found nowhere.
class PlanBooks {
public:
    /// `project` is the package with its own copies; none for one never saved.
    explicit PlanBooks(std::optional<std::filesystem::path> project) : package(std::move(project)) {}

    /// The playbook that plays, or null where there is none. Valid as long as this.
    const Shared<Book>* find(const std::string& id, std::optional<std::int64_t> version);

private:
    using Key = std::pair<std::string, std::optional<std::int64_t>>;

    std::optional<Shared<Book>> resolved(const Key& key);

    std::optional<std::filesystem::path> package;
    std::map<Key, std::optional<Shared<Book>>> known;
    std::size_t parts = 0; // layers, keys and parameters of all that were found
};

}
