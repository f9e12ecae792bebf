#pragma once

#include "core/render/plan/CaptionCue.h"

#include <string>
#include <vector>

namespace murbo {

/// A video's captions as a SubRip file, which every player shows.
namespace Subtitles {

/// The whole text of the file: numbered blocks with one empty line between them. UTF-8.
std::string srt(const std::vector<CaptionCue>& cues);

/// "01:01:01,500". What lies before 0, or is no number, is 0.
std::string time(double seconds);

}

}
