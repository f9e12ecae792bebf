#include "core/intake/samples/Luma.h"

#include <gtest/gtest.h>

using namespace murbo;

namespace {

/// A picture of 8 bits in limited range, held for the frame.
struct Stored {
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> levels;

    static Stored drawn(int width, int height) {
        Stored stored{width, height, {}};
        for (int at = 0; at < width * height; ++at)
            stored.levels.push_back(static_cast<std::uint8_t>(16 + (at * 37 + at / width * 11) % 220));
        return stored;
    }
    Frame frame() const {
        Frame frame{.width = width, .height = height};
        frame.planes[0] = levels.data();
        frame.strides[0] = width;
        return frame;
    }
    /// Plainly: the mean of each square, then the range stretched.
    int reduced(int x, int y, int step) const {
        int sum = 0;
        for (int row = 0; row < step; ++row)
            for (int column = 0; column < step; ++column)
                sum += levels[(y * step + row) * width + x * step + column];
        const double mean = std::round(static_cast<double>(sum) / (step * step));
        return static_cast<int>(std::clamp(std::round((mean - 16) / 219 * 255), 0.0, 255.0));
    }
};

}

TEST(Luma, isTheMeanOfEachSquareForEveryStep) {
    const Stored stored = Stored::drawn(53, 31);
    for (const int step : {1, 2, 3, 5, 8, 31}) {
        const Luma luma = Luma::of(stored.frame(), step);
        ASSERT_EQ(luma.width, 53 / step);
        ASSERT_EQ(luma.height, 31 / step);
        for (int y = 0; y < luma.height; ++y)
            for (int x = 0; x < luma.width; ++x)
                ASSERT_NEAR(luma.row(y)[x], stored.reduced(x, y, step), 1) << step << ": " << x << ", " << y;
    }
    EXPECT_TRUE(Luma::of(stored.frame(), 32).empty());
    EXPECT_TRUE(Luma::of(Frame{}, 1).empty());
}

TEST(Luma, isTheSameInTenBitsInEitherEndOfTheWord) {
    const Stored stored = Stored::drawn(32, 16);
    const Luma plain = Luma::of(stored.frame(), 4);
    for (const bool high : {false, true}) {
        std::vector<std::uint16_t> words;
        for (const int level : stored.levels)
            words.push_back(static_cast<std::uint16_t>(level << (high ? 8 : 2)));
        Frame frame = stored.frame();
        frame.depth = 10;
        frame.highBits = high;
        frame.planes[0] = reinterpret_cast<const std::uint8_t*>(words.data());
        frame.strides[0] = 64;
        EXPECT_EQ(Luma::of(frame, 4).pixels, plain.pixels) << high;
    }
}

TEST(Luma, isUprightAndReadsUpsideDownStorage) {
    const Stored stored{3, 2, {16, 60, 100, 140, 180, 220}};
    const Luma lying = Luma::of(stored.frame(), 1);
    const auto turned = [&](int turn) {
        Frame frame = stored.frame();
        frame.turn = turn;
        return Luma::of(frame, 1);
    };
    const auto& p = lying.pixels;
    EXPECT_EQ(turned(1).pixels, (std::vector<std::uint8_t>{p[3], p[0], p[4], p[1], p[5], p[2]}));
    EXPECT_EQ(turned(2).pixels, (std::vector<std::uint8_t>{p[5], p[4], p[3], p[2], p[1], p[0]}));
    EXPECT_EQ(turned(3).pixels, (std::vector<std::uint8_t>{p[2], p[5], p[1], p[4], p[0], p[3]}));
    EXPECT_EQ(turned(1).width, 2);
    EXPECT_EQ(turned(1).height, 3);

    Frame flipped = stored.frame();
    flipped.planes[0] += 3;
    flipped.strides[0] = -3;
    EXPECT_EQ(Luma::of(flipped, 1).pixels, (std::vector<std::uint8_t>{p[3], p[4], p[5], p[0], p[1], p[2]}));
}

TEST(Luma, runsFromBlackToTheBrightestOfEveryKind) {
    const Stored stored{4, 2, {16, 64, 100, 126, 180, 235, 0, 255}};
    const auto of = [](const Frame& frame) {
        const auto pixels = Luma::of(frame, 1).pixels;
        return std::vector<int>(pixels.begin(), pixels.end());
    };
    Frame frame = stored.frame();
    EXPECT_EQ(of(frame), (std::vector{0, 56, 98, 128, 191, 255, 0, 255}));
    frame.transfer = Frame::Transfer::pq;
    EXPECT_EQ(of(frame), (std::vector{0, 75, 130, 171, 255, 255, 0, 255}));
    frame = stored.frame();
    frame.fullRange = true;
    EXPECT_EQ(of(frame), (std::vector{16, 64, 100, 126, 180, 235, 0, 255}));
    Frame drawn{.width = 2, .height = 1, .layout = Frame::Layout::bgra};
    drawn.planes[0] = stored.levels.data();
    drawn.strides[0] = 8;
    EXPECT_EQ(of(drawn), (std::vector{(29 * 16 + 150 * 64 + 77 * 100) >> 8, (29 * 180 + 150 * 235) >> 8}));
    const Luma whole{5, 3, {10, 20, 30, 40, 9, 50, 60, 70, 82, 9, 9, 9, 9, 9, 9}};
    EXPECT_EQ(whole.halved().pixels, (std::vector<std::uint8_t>{35, 56}))
        << "what fills no square is left out";
    EXPECT_EQ(whole.halved().width, 2);
}
