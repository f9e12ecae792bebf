#pragma once

#include "core/ai/Said.h"
#include "core/model/Project.h"

#include <string>

namespace murbo {

/// A video and its changes in words, by tag.
namespace VideoInWords {

/// Its cuts, shots, captions and sounds.
std::string whole(const Video& video, const Said& said);

/// What differs between two states of a video, a line or more for each part; empty where nothing does.
std::string changes(const Video& before, const Video& now, const Said& said);

}

}
