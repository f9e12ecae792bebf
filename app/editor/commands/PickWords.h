#pragma once

#include "app/editor/Editor.h"

#include <string>
#include <vector>

namespace murbo {

/// Picks of the timeline in words for a model.
namespace PickWords {

/// "In V1 “Title”, these: cut 1 (C01.01 to C01.03), song tune at 0:01.00". A pick that has gone is passed
/// over.
std::string of(const Editor& editor, const std::vector<Pick>& picks);

}

}
