#pragma once

#include "core/model/Project.h"
#include "tests/MadeMedia.h"

/// The footage and the projects that scenarios begin with.
namespace murbo::scenario {

/// Six seconds of moving bars with a tone, 30 pictures a second.
std::filesystem::path bars();
/// Twelve seconds: a tone, from 4 to 8 s nothing, a tone.
std::filesystem::path talk();
/// Four seconds of one colour.
std::filesystem::path plain();

/// The three of them in a project, each a clip; what is said is written down for the second.
Project footage();

/// The same with a video of three cuts, 2 s each: bars 1–3, talk 0.5–2.5, plain 1–3.
Project cutVideo();

}
