#pragma once

#include "core/model/Video.h"

#include <string>

namespace murbo {

/// Words that the requests of several tasks share.
namespace Prompts {

/// What the transcripts are worth, and that footage is named by tags.
inline constexpr const char* transcriptWarning =
    "The transcripts are automatic and unreliable, especially for English game terms and English or Japanese "
    "inside Thai, which can come out as odd syllables. Use the owner's notes and the other clips to work out "
    "what "
    "was meant. Every line has a tag like C14.03 (clip C14, line 3); a stretch where nobody speaks may have "
    "a note, "
    "tagged like C14.n1. Name lines and notes by their tags, never by times.";

/// How long videos of that aspect are to be: all but horizontal ones are Shorts.
std::string aspectSentence(Video::Aspect aspect);

}

}
