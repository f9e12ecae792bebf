#pragma once

#include "platform/media/Input.h"
#include "platform/media/MediaFile.h"

namespace murbo::Facts {

/// The facts of a file that is already open. Reads no further in it, but may look at its end beside it.
MediaFacts of(const Input& input);

}
