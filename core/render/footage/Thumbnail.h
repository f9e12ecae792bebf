#pragma once

#include "platform/image/Bitmap.h"
#include "platform/image/Frame.h"

namespace murbo::Thumbnail {

/// A picture in at most `maxSide` pixels a side; a smaller one keeps its size.
Bitmap of(const Frame& frame, double maxSide);

}
