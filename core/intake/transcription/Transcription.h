#pragma once

#include "core/intake/transcription/Transcriber.h"
#include "core/model/Line.h"

#include <stop_token>
#include <string>
#include <vector>

namespace murbo {

struct Source;

/// From a stretch of a source to timed lines, by any engine.
namespace Transcription {

struct Result {
    std::vector<Line> lines;
    double cost = 0;     ///< US dollars
    std::string request; ///< what was asked, for the activity log
};

/// What is said on a source from `start` to `end`, in seconds. A line's end lies within the stretch. Blocks.
/// Throws a Problem, or Cancelled; the project is not touched, and no file stays behind in any case.
Result lines(const Source& source, double start, double end, const std::string& language,
             const std::string& hint, const Transcriber& engine, std::stop_token stop = {});

/// About what Scribe asks for so much sound, in US dollars.
double scribeCost(double seconds);

}

}
