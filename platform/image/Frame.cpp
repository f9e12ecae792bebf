#include "platform/image/Frame.h"

#include <cmath>

namespace murbo {
namespace {

/// Width of the stored picture in square pixels: whole, as players show it.
double squareWidth(const Frame& frame) {
    const bool sound = std::isfinite(frame.pixelAspect) && frame.pixelAspect > 0;
    return std::max(1.0, std::round(frame.width * (sound ? frame.pixelAspect : 1)));
}

int quarterTurns(const Frame& frame) {
    return ((frame.turn % 4) + 4) % 4;
}

}

Size Frame::uprightSize() const {
    const Size stored{squareWidth(*this), double(height)};
    return quarterTurns(*this) % 2 == 0 ? stored : Size{stored.height, stored.width};
}

Transform Frame::toStored() const {
    const double wide = squareWidth(*this);
    const Transform back[] = {{1, 0, 0, 1, 0, 0},
                              {0, -1, 1, 0, 0, double(height)},
                              {-1, 0, 0, -1, wide, double(height)},
                              {0, 1, -1, 0, wide, 0}};
    return back[quarterTurns(*this)].scaled(width / wide, 1);
}

}
