#include "tests/image/Pictures.h"

#include <cmath>

#include <gtest/gtest.h>

using namespace murbo;
using namespace murbo::Pictures;

TEST(AffineSamplers, turnsPicturesAsTheyWouldLookFromAfar) {
    const auto smooth = [](int x, int y) {
        return Colour{std::uint8_t(128 + 100 * std::sin(x * 0.07)),
                      std::uint8_t(128 + 100 * std::cos(y * 0.05)), std::uint8_t(x + y), 255};
    };
    const Bitmap bitmap = bitmapOf(120, 100, smooth);
    const std::pair<const char*, Transform> cases[] = {
        {"turned", Transform().rotated(25).translated(50, 10)},
        {"enlarged", Transform().translated(-40, -40).rotated(-130).scaled(2.5, 2.5).translated(60, 60)},
        {"small", Transform().rotated(10).scaled(0.3, 0.3).translated(40, 40)},
        {"sheared", Transform{1, 0.2, 0.9, 1.1, 0, 0}},
        {"squeezed", Transform().rotated(40).scaled(0.25, 1).translated(40, 20)}};
    for (const auto& [name, transform] : cases) {
        const auto bitmapThere = drawn(Image::bitmap(bitmap).transformed(transform), 140, 140);
        SCOPED_TRACE(name);
        const Transform back = transform.inverse();
        int compared = 0;
        const double scale = std::sqrt(std::abs(transform.a * transform.d - transform.b * transform.c));
        const double near = 3 * std::max(1 / scale, 1.0);
        everywhere(140, 140, [&](int x, int y) {
            const Point from = back.apply(Point{x + 0.5, y + 0.5});
            if (from.x < near || from.y < near || from.x > 120 - near || from.y > 100 - near) return;
            const auto [red, green, blue, alpha] = smooth(int(from.x), int(from.y));
            EXPECT_LE(difference(at(bitmapThere, x, y), {red, green, blue, alpha}), 14) << x << " " << y;
            ++compared;
        });
        EXPECT_GT(compared, 300);
    }
}
