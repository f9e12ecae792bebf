#pragma once

#include "app/desktop/models/BrowserRow.h"

#include <string>
#include <vector>

namespace murbo {

class Editor;

/// What the browser lists, worked out from a session.
namespace BrowserRows {

/// What the sidebar has picked, in the project's order; with `words` those that hold them in their title, tag
/// or in what is said.
std::vector<BrowserRow> of(Editor& editor, const std::string& words);

}

}
