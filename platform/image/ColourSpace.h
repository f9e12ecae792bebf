#pragma once

#include "platform/image/Frame.h"
#include "platform/image/kernels/Kernels.h"

#include <cstdint>

namespace murbo::ColourSpace {

/// The way from a frame's Y'CbCr to R'G'B' in its own space.
Kernels::YCbCrMatrix toPixels(const Frame& frame);
/// The same on a cube's scale, where white is 8192.
Kernels::YCbCrMatrix toCube(const Frame& frame);

/// The cube that brings a frame's R'G'B' to sRGB, or null where it is there already: standard range and
/// BT.709 primaries. Each kind is worked out once and kept; any thread may ask.
///
/// HLG is decoded by ITU-R BT.2100 for a display of 1000 cd/m², PQ by its curve. Channels is then measured by
/// the reference white of BT.2408, 203 cd/m²: up to half of it stays as it is, so that skin and rooms look as
/// they were exposed; above, a shoulder (Reinhard's, extended) brings 1000 cd/m² to white, bright colours
/// paling towards it. Colours outside BT.709 are drawn in along the distance from grey, not cut off. The
/// result is coded for a BT.1886 display.
const std::uint32_t* cube(const Frame& frame);

/// The colour of one cube entry, 0 to 1 a channel: what `cube` is filled from.
struct Channels {
    double red = 0;
    double green = 0;
    double blue = 0;
};
Channels toneMapped(Channels coded, Frame::Transfer transfer, Frame::Primaries primaries);

}
