#pragma once

#include "core/intake/transcription/HeardLine.h"

#include <string>
#include <vector>

namespace murbo {

/// What an engine gives back.
struct Transcribed {
    std::vector<HeardLine> lines;
    double cost = 0;     ///< US dollars charged for this request
    std::string request; ///< what was asked, for the activity log
};

}
