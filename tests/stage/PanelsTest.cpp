#include "tests/stage/Staged.h"

#include <gtest/gtest.h>

using namespace murbo;

namespace {

/// Footage whose colours give the place: red a pixel across, green a pixel down.
Image footage(int width, int height) {
    Bitmap bitmap(width, height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            auto* pixel = bitmap.row(y) + x * 4;
            pixel[0] = 255, pixel[1] = std::uint8_t(y), pixel[2] = std::uint8_t(x), pixel[3] = 255;
        }
    return Image::bitmap(bitmap);
}

/// The place in the footage that a pixel shows, within rounding.
void expectPlace(const Bitmap& frame, int x, int y, double across, double down) {
    const auto* pixel = frame.row(y) + x * 4;
    EXPECT_EQ(pixel[0], 255) << "no footage at " << x << ", " << y;
    EXPECT_NEAR(pixel[2] + 0.5, across, 1.2) << "across, at " << x << ", " << y;
    EXPECT_NEAR(pixel[1] + 0.5, down, 1.2) << "down, at " << x << ", " << y;
}

/// A 160 × 90 recording: the content its left 100 pixels, the face 40 × 80 at its right.
struct Show : Staged {
    Show() : Staged(90, 160) {
        source = footage(160, 90);
        framing = {.content = {0, 0, 100 / 160.0, 1}, .face = {0.75, 0, 0.25, 80 / 90.0}};
    }
};

}

TEST(Panels, cropTheFootageToTheShapeOfThePanel) {
    Show show;
    const auto panel = [&](const std::string& more) { return show.drawn("{" + more + "}"); };
    // Content, 100 × 90, into 90 × 45: all its width, the middle 50 of its height.
    const auto content = panel(R"("slot": "content", "w": 1, "h": 0.28125, "y": 0.5)");
    expectPlace(content, 0, 80, 0.5, 45);
    expectPlace(content, 89, 80, 99.5, 45);
    expectPlace(content, 45, 58, 50, 20.5);
    expectPlace(content, 45, 102, 50, 69.5);
    EXPECT_EQ(at(content, 45, 57) + at(content, 45, 103), "000000000000") << "ends where the layer says";
    // The face, 40 × 80, into a square: a quarter of what is cut off lies above.
    const auto face = panel(R"("slot": "face", "w": 1, "h": 0.5625)");
    expectPlace(face, 45, 35, 140, 10);
    expectPlace(face, 45, 124, 140, 50);
    // Only a width: the height follows; all of the recording.
    const auto wide = panel(R"("slot": "picture", "w": 1)");
    expectPlace(wide, 45, 80, 80, 45);
    EXPECT_EQ(at(wide, 45, 53) + at(wide, 45, 106), "000000000000");
    expectPlace(panel(R"("slot": "picture", "fill": true)"), 45, 80, 80, 45);
}

TEST(Panels, followTheShotWhereTheLayerSaysSo) {
    Show show;
    auto shot = Staged::placed(R"({"slot": "content", "fill": true, "shot": true})");
    shot.zoom = 2;
    shot.focus = 1;
    // 45 wide and 80 high at the right of the content, halved by the zoom.
    const auto zoomed = show.drawn(shot);
    expectPlace(zoomed, 89, 0, 99.5, 22.5);
    expectPlace(zoomed, 0, 159, 75, 67.5);
    auto free = Staged::placed(R"({"slot": "content", "fill": true})");
    free.zoom = 2;
    free.focus = 1;
    expectPlace(show.drawn(free), 45, 80, 50, 45);

    show.framing.eyes = Spot{0.8125, 0.5}; // 130, 45
    const auto eyes = show.drawn(R"({"slot": "face", "w": 1, "h": 0.28125})");
    expectPlace(eyes, 45, 58, 140, 45 - 0.42 * 20); // held in the box across, 42 hundredths above the eyes
    expectPlace(eyes, 45, 101, 140, 45 + 0.58 * 20);
    show.framing.eyes = Spot{2, 2};
    expectPlace(show.drawn(R"({"slot": "face", "w": 1, "h": 0.28125})"), 45, 101, 140, 79.5);
}

TEST(Panels, thatShareAnEdgeMeetWithoutAGap) {
    Show show;
    show.below = Staged::box(90, 160, {255, 0, 0});
    for (const char* split : {"0.2", "0.333", "0.42", "0.5156", "0.7", "0.7779"}) {
        auto top = Staged::placed(R"({"slot": "content", "w": 1, "h": "1-$split", "y": "$split+(1-$split)/2"},
            {"slot": "face", "w": 1, "h": "$split", "y": "$split/2"})");
        top.values = Values{{"split", split}};
        const auto frame = show.drawn(top);
        for (int y = 0; y < 160; ++y)
            for (const int x : {0, 45, 89})
                EXPECT_EQ((frame.row(y) + x * 4)[0], 255)
                    << "background at " << x << ", " << y << " for " << split;
    }
}
