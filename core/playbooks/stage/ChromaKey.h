#pragma once

#include "platform/image/Colour.h"
#include "platform/image/Filter.h"

namespace murbo::ChromaKey {

/// Takes out the colours whose hue is within 22 degrees of the key's, softly up to 40. What is nearly black
/// or nearly grey stays, whatever the key.
ColourCube cube(Colour key);

}
