#include "core/render/stage/Slots.h"
#include "tests/TemporaryFolder.h"
#include "tests/stage/Staged.h"

#include <cmath>

#include <gtest/gtest.h>
#include <sys/stat.h>

using namespace murbo;
using namespace std::literals;

namespace {

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

Playbook::Layer played(std::optional<double> speed, bool loop, bool bounce) {
    Playbook::Layer layer;
    layer.speed = speed;
    layer.loop = loop;
    layer.bounce = bounce;
    return layer;
}

}

TEST(Slots, playTheirClips) {
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
        EXPECT_NEAR(Stage::Slots::playhead(layer, held, length), at, 1e-9) << held << " of " << length;
}

TEST(Slots, readNoFileFromOutsideAndNoneThatWouldBlock) {
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
        overlay.values = Values{{"file", path}};
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
