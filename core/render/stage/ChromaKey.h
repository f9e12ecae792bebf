#pragma once

#include "platform/image/Colour.h"
#include "platform/image/filters/ColourCube.h"

#include <optional>

namespace murbo::ChromaKey {

/// Takes out the colours whose hue is within 22 degrees of the key's, softly up to 40. What is nearly black
/// or nearly grey stays, whatever the key. Nothing where the key is a grey: that has no hue.
std::optional<Filters::ColourCube> cube(Colour key);

}
