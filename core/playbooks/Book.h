#pragma once

#include "core/playbooks/Playbook.h"

#include <filesystem>
#include <optional>
#include <string>

namespace murbo {

/// A playbook and where it stands.
struct Book {
    Playbook playbook;                           ///< its id always filled in
    std::optional<std::filesystem::path> folder; ///< none for one of the stock, which has no files

    std::string id() const { return playbook.id.value_or(""); }
    std::int64_t version() const { return playbook.version.value_or(1); }

    /// The parameters' values: their defaults, with `overrides` over them.
    Values values(const std::optional<Values>& overrides) const;

    /// One of its own files. Nothing for a path that leads out of its folder, also by a link.
    std::optional<std::filesystem::path> file(const std::string& name) const;

    bool operator==(const Book&) const = default;
};

}
