#pragma once

#include "platform/media/MediaFacts.h"

#include <filesystem>

namespace murbo {

namespace MediaFile {

/// The facts of a file. Throws Problem where it is no readable media file. Bounded in time, also for
/// broken files; sound-only files have no picture, and an attached cover counts as none.
MediaFacts facts(const std::filesystem::path& path);

}

}
