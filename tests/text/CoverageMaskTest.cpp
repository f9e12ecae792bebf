#include "platform/text/CoverageMask.h"

#include <gtest/gtest.h>

using namespace murbo;

namespace {

/// One box along rows or down columns, sample by sample: the slow twin of a pass of the blur.
CoverageMask boxed(const CoverageMask& from, int before, int after, bool down) {
    CoverageMask to(from.width(), from.height());
    for (int y = 0; y < to.height(); ++y)
        for (int x = 0; x < to.width(); ++x) {
            double sum = 0;
            for (int at = (down ? y : x) - before; at <= (down ? y : x) + after; ++at)
                if (at >= 0 && at < (down ? to.height() : to.width()))
                    sum += down ? from.row(at)[x] : from.row(y)[at];
            to.row(y)[x] = std::uint8_t(std::lround(sum / (before + after + 1)));
        }
    return to;
}

}

TEST(CoverageMask, blurIsThreeBoxesUpToTheEdgesOfThePlane) {
    using Boxes = std::vector<std::pair<int, int>>; // samples before and after
    for (const auto& [sigma, boxes] :
         std::vector<std::pair<double, Boxes>>{{0, {}},
                                               {0.7, {}},
                                               {1.1, {{1, 0}, {0, 1}, {1, 1}}},
                                               {1.6, {{1, 1}, {1, 1}, {1, 1}}},
                                               {4.3, {{4, 3}, {3, 4}, {4, 4}}},
                                               {400, {{376, 375}, {375, 376}, {376, 376}}}}) {
        CoverageMask mask(13, 7);
        for (int at = 0; at < 13 * 7; ++at) mask.row(0)[at] = std::uint8_t(255 - at * at % 97);
        CoverageMask expected = mask;
        mask.blur(sigma);
        for (const auto& [before, after] : boxes)
            expected = boxed(boxed(expected, before, after, false), before, after, true);
        for (int at = 0; at < 13 * 7; ++at)
            EXPECT_NEAR(mask.row(0)[at], expected.row(0)[at], 1) << sigma << " at " << at;
    }
}

TEST(CoverageMask, paintingMatchesPlainSourceOver) {
    CoverageMask mask(37, 4);
    for (int at = 0; at < 37 * 4; ++at)
        mask.row(0)[at] = at % 37 < 9 ? 0 : at % 37 < 20 ? 255 : std::uint8_t(at * 6);
    for (const Colour colour : {Colour{200, 100, 7, 255}, Colour{255, 255, 255, 128}, Colour{0, 0, 0, 179}})
        for (const auto& [right, down] : {std::pair{0, 0}, {5, 2}, {-11, -1}, {-40, 0}, {0, 9}}) {
            Bitmap bitmap(40, 5);
            for (int y = 0; y < 5; ++y) std::fill_n(bitmap.row(y), 40 * 4, std::uint8_t(80));
            mask.paint(bitmap, colour, right, down);
            for (int y = 0; y < 5; ++y)
                for (int x = 0; x < 40; ++x) {
                    const bool in = x >= right && x < right + 37 && y >= down && y < down + 4;
                    const double cover = in ? mask.row(y - down)[x - right] / 255.0 * colour.alpha / 255 : 0;
                    const std::array ink{colour.blue, colour.green, colour.red, std::uint8_t(255)};
                    for (int channel = 0; channel < 4; ++channel)
                        EXPECT_NEAR(bitmap.row(y)[x * 4 + channel],
                                    ink[std::size_t(channel)] * cover + 80 * (1 - cover), 1.6)
                            << x << ", " << y << " moved by " << right;
                }
        }
}
