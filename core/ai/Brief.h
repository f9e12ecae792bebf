#pragma once

#include "core/ai/Said.h"
#include "core/model/Project.h"

#include <string>
#include <string_view>
#include <vector>

namespace murbo {

/// A project in plain text for a model: its footage by tags, never by ids. What is quoted from footage
/// stays on its own line behind its tag, so that it can't be taken for the program's words.
namespace Brief {

using Clips = std::vector<const Clip*>;

/// A text on one line: line breaks and other control characters become blanks.
std::string oneLine(std::string_view text);

/// A source's file name, or "a missing file" for null.
std::string fileName(const Source* source);

/// One block a clip: its head, and each line and note with its tag and time on the source. A blank line
/// stands between clips.
std::string lines(const Clips& clips, const Project& project, const Said& said);

/// One line a clip: where it is, and its summary or how it starts.
std::string digest(const Clips& clips, const Project& project, const Said& said);

/// The owner's notes on the sources that hold these clips; empty where there are none.
std::string notes(const Clips& clips, const Project& project);

/// One line a cut: its ends by tag, its length, and what is said in it.
std::string cuts(const Video& video, const Said& said);

/// The lines of a video as it plays, with when each comes on the video.
std::string script(const Video& video, const Said& said);

/// What is said first in a clip: the text of its first three pieces, as one line.
std::string beginning(const Clip& clip, const Said& said);

}

}
