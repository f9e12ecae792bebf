#pragma once

#include "platform/media/Demuxer.h"
#include "platform/media/MediaFacts.h"

namespace murbo::Facts {

/// The facts of a file that is already open. Reads no further in it, but may look at its end beside it.
MediaFacts of(const Demuxer& input);

}
