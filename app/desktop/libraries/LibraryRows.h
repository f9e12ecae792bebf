#pragma once

#include "app/desktop/libraries/LibraryRow.h"
#include "app/editor/Collection.h"

#include <stop_token>
#include <vector>

namespace murbo {

/// What a page of the library lists. Reads folders and files: not for the main thread.
namespace LibraryRows {

/// The pages are those of these collections.
bool isLibrary(Collection collection);

/// The page that a playbook stands on.
Collection pageOf(const Book& book);

/// The playbooks of a kind or the sounds, in the library's order; after the playbooks the folders that are
/// none, with the reason.
std::vector<LibraryRow> of(Collection collection);

/// Fills in how long the sounds among rows are, and which can't be read.
void measure(std::vector<LibraryRow>& rows, const std::stop_token& stop);

/// The folder that a page's things lie in.
std::filesystem::path folder(Collection collection);

}

}
