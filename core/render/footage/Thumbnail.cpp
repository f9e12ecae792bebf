#include "core/render/footage/Thumbnail.h"

#include "platform/image/Image.h"
#include "platform/image/draw/Canvas.h"

#include <algorithm>
#include <cmath>

namespace murbo {

Bitmap Thumbnail::of(const Frame& frame, double maxSide) {
    const Size size = frame.uprightSize();
    const double scale = std::min(1.0, maxSide / std::max(size.width, size.height));
    const double width = std::max(1.0, std::round(size.width * scale));
    const double height = std::max(1.0, std::round(size.height * scale));
    const Transform fitted = Transform().scaled(width / size.width, height / size.height);
    return Canvas::bitmap(Image::frame(frame).clamped().transformed(fitted), {0, 0, width, height});
}

}
