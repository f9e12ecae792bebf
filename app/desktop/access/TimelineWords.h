#pragma once

#include "app/desktop/timeline/TimelineLayout.h"

#include <string>

namespace murbo {

/// What a timeline and its blocks are called by a screen reader.
namespace TimelineWords {

/// "Timeline of V2, 9 cuts, 42 seconds"; "Timeline" where no video is open.
std::string list(const Video* video);

/// "Cut 2 of 9, C14.03 to C14.05, 0:04.20 to 0:09.30, picked". The block is one of the layout's.
std::string block(const TimelineLayout& layout, const TimelineBlock& block, bool picked);

}

}
