#pragma once

#include "core/playbooks/Book.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace murbo {

/// Where playbooks live: the program's stock, the owner's library, and a copy of each version in the projects
/// that use it. Reading never fails loudly: what can't be read is left out. Any thread.
namespace Playbooks {

/// A file to go into a playbook's assets.
struct Asset {
    std::filesystem::path from;
    std::string name; ///< under "assets/"
};

/// The playbook in a folder. Throws a Problem where it can't be read.
Book load(const std::filesystem::path& folder);

/// All that can be chosen: the owner's by name, then the stock. A listing is good for three seconds.
std::vector<Book> library();

/// A folder of the owner's that is no playbook, and why.
struct LeftOut {
    std::filesystem::path folder;
    std::string reason;
};
/// Those that a listing passes over. Reads them all anew.
std::vector<LeftOut> leftOut();

/// Forgets the listing, so that the next one looks at the folder again.
void dropListing();

/// The first of that id in the library.
std::optional<Book> find(const std::string& id);

/// The playbook that plays: the project's own copy of that version first; else the library's, where its
/// version is the one asked for or it is one of the stock, which has only its present version.
std::optional<Book> book(const std::string& id, std::optional<std::int64_t> version,
                         const std::optional<std::filesystem::path>& project);

/// A project's copy of a version.
std::optional<Book> copy(const std::string& id, std::int64_t version, const std::filesystem::path& project);

/// Pins a playbook: copies it with its assets into a project that does not have that version yet. Throws a
/// Problem.
Book copy(const Book& book, const std::filesystem::path& project);

/// The JSON of a playbook as it stands in its file.
std::string encoded(const Playbook& playbook);

/// Saves a playbook to the owner's library: under its id as the next version, the one before kept, or as a
/// new playbook. `by` names who saved. All or nothing: throws a Problem with the library untouched.
Book write(Playbook playbook, const std::vector<Asset>& assets, const std::string& by);

/// Takes a playbook that was handed over, a folder or its JSON alone, into the owner's library, under its own
/// id: as the next version where that is there and says something else. Throws a Problem with the faults, the
/// library untouched.
Book bringIn(const std::filesystem::path& given);

/// What changed between two JSON texts, a short line each.
std::vector<std::string> diff(std::string_view before, std::string_view after);

}

}
