#include "tests/image/Pictures.h"

#include <cmath>
#include <cstdlib>
#include <fstream>
#include <ostream>

namespace murbo::Pictures {

std::ostream& operator<<(std::ostream& stream, const Pixel& pixel) {
    return stream << "r " << pixel.red << " g " << pixel.green << " b " << pixel.blue << " a " << pixel.alpha;
}

Pixel at(const Bitmap& bitmap, int x, int y) {
    const auto* pixel = bitmap.row(y) + x * 4;
    return {pixel[2], pixel[1], pixel[0], pixel[3]};
}

int difference(const Pixel& one, const Pixel& other) {
    return std::max({std::abs(one.red - other.red), std::abs(one.green - other.green),
                     std::abs(one.blue - other.blue), std::abs(one.alpha - other.alpha)});
}

int difference(const Bitmap& one, const Bitmap& other) {
    int max = one.width() == other.width() && one.height() == other.height() ? 0 : 999;
    if (max == 0)
        everywhere(one.width(), one.height(),
                   [&](int x, int y) { max = std::max(max, difference(at(one, x, y), at(other, x, y))); });
    return max;
}

int difference(const Planes& one, const Planes& other) {
    int max = 0;
    for (int plane = 0; plane < 3; ++plane) {
        const int share = plane == 0 ? 1 : 2;
        everywhere(one.width() / share, one.height() / share, [&](int x, int y) {
            max = std::max(max, std::abs(one.plane(plane)[y * one.stride(plane) + x] -
                                         other.plane(plane)[y * other.stride(plane) + x]));
        });
    }
    return max;
}

double coverage(const Bitmap& bitmap) {
    double sum = 0;
    everywhere(bitmap.width(), bitmap.height(), [&](int x, int y) { sum += at(bitmap, x, y).alpha / 255.0; });
    return sum;
}

Bitmap drawn(const Image& image, int width, int height) {
    Bitmap bitmap(width, height);
    // What stood there before must not show.
    for (int y = 0; y < height; ++y) std::memset(bitmap.row(y), 0xA5, std::size_t(width) * 4);
    Canvas::draw(image, bitmap);
    return bitmap;
}

Image box(const Rect& rect, Colour colour) {
    return Image::colour(colour).cropped(rect);
}

Colour speckled(int x, int y) {
    return {std::uint8_t(x * 37 + y * 11), std::uint8_t(x * 5 ^ y * 53), std::uint8_t(x * y * 7), 255};
}

Colour wavy(int x, int y) {
    return {std::uint8_t(128 + 100 * std::sin(x * 0.12 + y * 0.02)),
            std::uint8_t(128 + 90 * std::cos(y * 0.09 - x * 0.05)),
            std::uint8_t(130 + 90 * std::tanh((x - 80) / 5.0)), 255};
}

Frame form(int width, int height, Frame::Layout layout, int depth) {
    return {.width = width, .height = height, .layout = layout, .depth = depth};
}

Bitmap bitmapOf(int width, int height, const std::function<Colour(int x, int y)>& colour) {
    Bitmap bitmap(width, height);
    everywhere(width, height, [&](int x, int y) {
        const auto [red, green, blue, alpha] = colour(x, y);
        const auto times = [a = alpha](int value) { return std::uint8_t((value * a + 127) / 255); };
        const std::uint8_t pixel[] = {times(blue), times(green), times(red), alpha};
        std::copy(pixel, pixel + 4, bitmap.row(y) + x * 4);
    });
    return bitmap;
}

Frame frameOf(Frame form, const Samples& samples) {
    const bool colour = form.layout != Frame::Layout::grey;
    const int stepX = form.layout == Frame::Layout::chroma444 ? 1 : 2;
    const int stepY = form.layout == Frame::Layout::chroma420 ? 2 : 1;
    const int bytes = form.depth > 8 ? 2 : 1;
    const int shift = form.highBits ? 16 - form.depth : 0;
    auto memory = std::make_shared<std::vector<std::uint8_t>>(std::size_t(form.width + 64) *
                                                              (form.height + 2) * 4 * bytes);
    auto* next = memory->data();
    const auto store = [&](int plane, int width, int height, int step) {
        const std::ptrdiff_t stride = std::ptrdiff_t(width) * step * bytes + 6;
        everywhere(width, height, [&](int x, int y) {
            const double value = samples(plane, (x + 0.5) / width, (y + 0.5) / height);
            const auto code = std::lround(value * ((1 << form.depth) - 1)) << shift;
            auto* place = next + y * stride + std::ptrdiff_t(x) * step * bytes;
            place[0] = std::uint8_t(code);
            if (bytes == 2) place[1] = std::uint8_t(code >> 8);
        });
        return stride;
    };
    const auto add = [&](int plane, int width, int height) {
        form.planes[plane] = next;
        form.strides[plane] = store(plane, width, height, 1);
        next += form.strides[plane] * height;
    };
    const int wide = (form.width + stepX - 1) / stepX;
    const int high = (form.height + stepY - 1) / stepY;
    add(0, form.width, form.height);
    if (colour && form.interleavedChroma) {
        form.planes[1] = next;
        form.strides[1] = store(1, wide, high, 2);
        next += bytes;
        store(2, wide, high, 2);
        next += form.strides[1] * high;
    } else if (colour) {
        add(1, wide, high);
        add(2, wide, high);
    }
    if (form.hasAlpha) add(3, form.width, form.height);
    form.keeper = memory;
    return form;
}

double waves(int plane, double x, double y) {
    return 0.5 + 0.25 * std::sin(5 * x + 3 * y + 2 * plane) + 0.15 * std::cos(9 * y - 4 * x * (plane + 1));
}

}
