#pragma once

#include "platform/image/Bitmap.h"

#include <optional>

namespace murbo {

/// Where the people in a picture are. Any thread may ask; threads never wait for one another's masks.
namespace SubjectMask {

/// Whether this machine has what it takes: the weights lie with the program.
bool available();

/// The longer side of a picture that is worth giving, in pixels: more would not be looked at.
inline constexpr int side = 512;

/// A soft mask of the picture's size: white at the alpha of how much of a pixel is subject. Depends on the
/// pixels alone. Nothing where there is no subject, or nothing to find it with.
std::optional<Bitmap> of(const Bitmap& picture);

}

}
