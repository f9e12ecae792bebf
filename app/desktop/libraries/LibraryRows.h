#pragma once

#include "app/desktop/libraries/LibraryRow.h"
#include "app/editor/Collection.h"

#include <vector>

namespace murbo {

/// What a page of the library lists. Reads folders and files: not for the main thread.
namespace LibraryRows {

/// The pages are those of these collections.
bool isLibrary(Collection collection);

/// The playbooks of a kind or the sounds, in the library's order; after the playbooks the folders that are
/// none, with the reason.
std::vector<LibraryRow> of(Collection collection);

/// The folder that a page's things lie in.
std::filesystem::path folder(Collection collection);

}

}
