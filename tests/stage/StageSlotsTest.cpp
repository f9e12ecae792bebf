#include "core/render/stage/Slots.h"
#include "tests/TemporaryFolder.h"
#include "tests/stage/Staged.h"

#include <cmath>

#include <gtest/gtest.h>
#include <sys/stat.h>

using namespace murbo;
using namespace std::literals;

namespace {

/// Footage whose colours tell the place: red a pixel across, green a pixel down.
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

/// A picture file of one pixel: blue, green, red.
std::string bmpOf(const std::string& pixel) {
    std::string bytes = "BM";
    const auto number = [&](std::uint32_t value, int size) {
        for (int i = 0; i < size; ++i) bytes += char(value >> 8 * i);
    };
    for (const std::uint32_t value : {58, 0, 54, 40, 1, 1}) number(value, 4);
    number(1, 2);
    number(24, 2);
    for (const std::uint32_t value : {0, 4, 0, 0, 0, 0}) number(value, 4);
    return bytes + pixel + char(0);
}

/// A 160 × 90 recording: the content its left 100 pixels, the face 40 × 80 at its right.
struct Show : Staged {
    Show() : Staged(90, 160) {
        source = footage(160, 90);
        framing = {.content = {0, 0, 100 / 160.0, 1}, .face = {0.75, 0, 0.25, 80 / 90.0}};
    }
};

Playbook::Layer played(std::optional<double> speed, bool loop, bool bounce) {
    Playbook::Layer layer;
    layer.speed = speed;
    layer.loop = loop;
    layer.bounce = bounce;
    return layer;
}

}

TEST(StageSlots, cropTheFootageToTheShapeOfThePanel) {
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

TEST(StageSlots, followTheShotWhereTheLayerSaysSo) {
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

TEST(StageSlots, thatShareAnEdgeMeetWithoutAGap) {
    Show show;
    show.below = Staged::box(90, 160, {255, 0, 0});
    for (const char* split : {"0.2", "0.333", "0.42", "0.5156", "0.7", "0.7779"}) {
        auto top = Staged::placed(R"({"slot": "content", "w": 1, "h": "1-$split", "y": "$split+(1-$split)/2"},
            {"slot": "face", "w": 1, "h": "$split", "y": "$split/2"})");
        top.values = {{"split", split}};
        const auto frame = show.drawn(top);
        for (int y = 0; y < 160; ++y)
            for (const int x : {0, 45, 89})
                EXPECT_EQ((frame.row(y) + x * 4)[0], 255)
                    << "background at " << x << ", " << y << " for " << split;
    }
}

TEST(StageSlots, playTheirClips) {
    struct Case {
        Playbook::Layer layer;
        double held, length, at;
    };
    for (const auto& [layer, held, length, at] :
         {Case{played({}, false, false), 1, 2, 1}, Case{played({}, false, false), 9, 2, 1.96},
          Case{played(2, false, false), 0.7, 2, 1.4}, Case{played({}, true, false), 5, 2, 1},
          Case{played({}, false, true), 3, 2, 1}, Case{played({}, true, true), 4.5, 2, 0.5},
          Case{played({}, true, false), 5, 0.05, 0}, Case{played(-1, true, false), 0.5, 2, 1.5},
          Case{played(-1, false, false), 0.5, 2, 0}, Case{played(1e308, true, false), 1e308, 2, 0},
          Case{played({}, true, false), 1, std::nan(""), 0}})
        EXPECT_NEAR(Stage::playhead(layer, held, length), at, 1e-9) << held << " of " << length;
}

TEST(StageSlots, readNoFileFromOutsideAndNoneThatWouldBlock) {
    const TemporaryFolder folder;
    const std::string red = bmpOf("\x01\x02\xFF");
    folder.file("book.mbplay/assets/red.bmp", red);
    folder.file("project.mbproj/media/red.bmp", red);
    folder.file("secret.bmp", red);
    std::filesystem::create_symlink(folder / "secret.bmp", folder / "book.mbplay/assets/link.bmp");
    ASSERT_EQ(mkfifo((folder / "book.mbplay/assets/pipe.mp4").c_str(), 0600), 0);

    Staged stage(40, 40);
    stage.plan.project = folder / "project.mbproj";
    const auto shows = [&](const std::string& path) {
        auto overlay = Staged::placed(R"({"slot": "$file", "fill": true})");
        overlay.values = {{"file", path}};
        overlay.book.edit().folder = folder / "book.mbplay";
        return at(stage.drawn(overlay), 20, 20) == "FF0201";
    };
    EXPECT_TRUE(shows("assets/red.bmp"));
    EXPECT_TRUE(shows("media/red.bmp"));
    EXPECT_TRUE(shows(folder / "secret.bmp")) << "whoever names it by its whole path";
    for (const auto& path : {"../secret.bmp"s, "assets/link.bmp"s, "media/../../secret.bmp"s,
                             "assets/pipe.mp4"s, "assets"s, "/dev/zero"s, "assets/red.bmp\0x"s, "emoji:"s})
        EXPECT_FALSE(shows(path)) << path;
}
