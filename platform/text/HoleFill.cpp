#include "platform/text/HoleFill.h"

namespace murbo::HoleFill {

namespace {

struct Hole {
    std::vector<int> pixels;
    double area = 0;
    bool open = false; ///< reaches the mask's edge: what lies round the shape
};

/// The connected pixels that are not wholly covered, from `start` on; they are marked as `seen`.
Hole holeAt(int start, const std::vector<std::uint8_t>& mask, int width, int height,
            std::vector<bool>& seen) {
    Hole hole;
    hole.pixels.push_back(start);
    seen[std::size_t(start)] = true;
    for (std::size_t next = 0; next < hole.pixels.size(); ++next) {
        const int pixel = hole.pixels[next];
        const int x = pixel % width;
        const int y = pixel / width;
        hole.area += (255 - mask[std::size_t(pixel)]) / 255.0;
        hole.open = hole.open || x == 0 || y == 0 || x == width - 1 || y == height - 1;
        const std::array<int, 4> beside{x > 0 ? pixel - 1 : pixel, x < width - 1 ? pixel + 1 : pixel,
                                        y > 0 ? pixel - width : pixel,
                                        y < height - 1 ? pixel + width : pixel};
        for (const int other : beside) {
            if (seen[std::size_t(other)] || mask[std::size_t(other)] == 255) continue;
            seen[std::size_t(other)] = true;
            hole.pixels.push_back(other);
        }
    }
    return hole;
}

}

void close(std::vector<std::uint8_t>& mask, int width, int height, double area) {
    std::vector<bool> seen(mask.size());
    for (int start = 0; start < width * height; ++start) {
        if (seen[std::size_t(start)] || mask[std::size_t(start)] == 255) continue;
        const Hole hole = holeAt(start, mask, width, height, seen);
        if (hole.open || hole.area >= area) continue;
        for (const int pixel : hole.pixels) mask[std::size_t(pixel)] = 255;
    }
}

}
