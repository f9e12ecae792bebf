#include "core/render/stage/Slots.h"
#include "platform/image/Jpeg.h"
#include "tests/TemporaryFolder.h"
#include "tests/footage/Movie.h"
#include "tests/stage/Staged.h"

#include <cmath>

#include <gtest/gtest.h>
#include <sys/stat.h>

using namespace murbo;
using namespace std::literals;

namespace {

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
          Case{played({}, false, true), 3.5, 2, 0.5}, Case{played({}, true, true), 4.5, 2, 0.5},
          Case{played({}, true, false), 5, 0.05, 0}, Case{played(-1, true, false), 0.5, 2, 1.5},
          Case{played(-1, false, false), 0.5, 2, 0}, Case{played(1e308, true, false), 1e308, 2, 0},
          Case{played({}, true, false), 1, std::nan(""), 0}})
        EXPECT_NEAR(Stage::Slots::playhead(layer, held, length), at, 1e-9) << held << " of " << length;
}

TEST(Slots, readNoFileFromOutsideAndNoneThatWouldBlock) {
    const TemporaryFolder folder;
    const auto picture = Jpeg::encode(Canvas::bitmap(Image::colour(Colour::white), {0, 0, 8, 8}), 1);
    for (const char* name : {"book.mbplay/assets/a.jpg", "project.mbproj/media/a.jpg", "secret.jpg"})
        folder.file(name, picture);
    std::filesystem::create_symlink(folder / "secret.jpg", folder / "book.mbplay/assets/link.jpg");
    ASSERT_EQ(mkfifo((folder / "book.mbplay/assets/pipe.mp4").c_str(), 0600), 0);

    Staged stage(40, 40);
    stage.plan.project = folder / "project.mbproj";
    const auto shows = [&](const std::string& path) {
        auto overlay = Staged::placed(R"({"slot": "$file", "fill": true})");
        overlay.values = Values{{"file", path}};
        overlay.book.edit().folder = folder / "book.mbplay";
        return at(stage.drawn(overlay), 20, 20) == white;
    };
    EXPECT_TRUE(shows("assets/a.jpg"));
    EXPECT_TRUE(shows("media/a.jpg"));
    EXPECT_TRUE(shows(folder / "secret.jpg")) << "whoever names it by its whole path";
    for (const auto& path : {"../secret.jpg"s, "assets/link.jpg"s, "media/../../secret.jpg"s,
                             "assets/pipe.mp4"s, "assets"s, "/dev/zero"s, "assets/a.jpg\0x"s, "emoji:"s})
        EXPECT_FALSE(shows(path)) << path;
}

TEST(Slots, showAVideoAndAStretchOfTheSource) {
    const TemporaryFolder folder;
    const auto file = (folder / "a.mp4").string();
    Movie::write(file, 60); // two seconds
    Staged stage(128, 64);
    auto overlay = Staged::placed("", 9);
    stage.plan.sources[overlay.overlay.source] = file;
    const auto shown = [&](const std::string& layer, double time) {
        overlay.book = Staged::placed("{" + layer + R"(, "fill": true})").book;
        return Movie::number(stage.drawn(overlay, time));
    };
    const std::string video = R"("video": ")" + file + '"';
    EXPECT_EQ(shown(video + R"(, "start": 0.5, "speed": 2)", 0.5), 45);
    EXPECT_EQ(shown(video + R"(, "start": 1, "loop": true)", 1.5), 45);
    EXPECT_EQ(shown(R"("slot": "rec:0.5-1.5")", 0.5), 30);
    for (const char* wrong : {"rec:", "rec:1", "rec:1-1", "rec:1.5-0.5", "rec:0-1-2", "rec:a-b"})
        EXPECT_EQ(shown(R"("slot": ")" + std::string(wrong) + '"', 0.5), Movie::number(stage.drawn("")))
            << wrong;
    stage.plan.sources[overlay.overlay.source] = folder.file("noise.mp4", "no video");
    EXPECT_EQ(shown(R"("slot": "rec:0.5-1.5")", 0.5), Movie::number(stage.drawn("")));
}
