#include "core/render/stage/Budget.h"
#include "platform/image/ImageNode.h"
#include "platform/image/Jpeg.h"
#include "tests/TemporaryFolder.h"
#include "tests/footage/Movie.h"
#include "tests/stage/Staged.h"

#include <gtest/gtest.h>

using namespace murbo;

namespace {

/// The layers of a playbook that are drawn with that budget.
int drawnOf(const std::string& layers, Stage::Budget budget, int copies = 1) {
    Staged stage(200, 200);
    auto overlay = Staged::placed(layers);
    auto& all = overlay.book.edit().playbook.layers;
    const auto first = all;
    for (int more = 1; more < copies; ++more) all.insert(all.end(), first.begin(), first.end());
    const Stage::Scene scene{Image(), std::nullopt, {}, stage.plan, stage.media, &budget};
    Image image = Stage::draw(overlay, 1, scene, Image());
    int count = 0;
    while (!image.empty()) {
        const auto* crop = std::get_if<ImageNode::Crop>(&image.node()->kind);
        const auto* over = std::get_if<ImageNode::Over>(&image.node()->kind);
        if (!over && !crop) return count + 1;
        if (over) ++count;
        image = Image(over ? over->below : crop->of);
    }
    return count;
}

std::string halfClear(const std::string& more = "") {
    return R"({"shape": "rect", "fill": true, "opacity": 0.5)" + more + "}";
}

}

TEST(Budget, endsWhereAFrameIsCoveredOverAndOver) {
    EXPECT_EQ(drawnOf(halfClear(), {}, 100), 100);
    EXPECT_EQ(drawnOf(halfClear(), {}, 400), 300);
    EXPECT_EQ(drawnOf(halfClear(R"(, "blend": "soft")"), {}, 400), 75) << "mixing takes four times as long";
    const std::string small = R"({"shape": "rect", "w": 0.1, "h": 0.1, "opacity": 0.5})";
    EXPECT_EQ(drawnOf(small, {}, 450), 450) << "a hundredth of the frame";
    const std::string beside = R"({"shape": "rect", "w": 9, "h": 9, "x": 30, "opacity": 0.5})";
    EXPECT_EQ(drawnOf(beside + "," + halfClear(), {}, 200), 200) << "what nobody sees costs nothing";
}

TEST(Budget, givesLettersAndPicturesOneAmountOfPixels) {
    const TemporaryFolder folder;
    const auto file = folder.file("a.jpg", Jpeg::encode(Bitmap(8, 8), 1));
    const std::string picture = R"({"image": ")" + file.string() + R"(", "w": 0.1})";
    const std::string letters = R"({"text": "I", "size": 40, "outline": ""})";
    if (drawnOf(letters, {}) == 0) GTEST_SKIP() << "No font is installed.";
    ASSERT_EQ(drawnOf(picture, {}), 1);
    Stage::Budget five;
    five.pixels = 5 * Stage::Budget::fewestPixels;
    EXPECT_EQ(drawnOf(picture + "," + letters, five, 2), 4);
    EXPECT_EQ(drawnOf(picture + "," + letters, five, 10), 5);
    EXPECT_EQ(drawnOf(R"({"slot": "emoji:😂"})", five, 10), 5);
}

TEST(Budget, drawsAsManyPicturesAsItHolds) {
    const TemporaryFolder folder;
    const auto file = folder.file("a.jpg", Jpeg::encode(Bitmap(8, 8), 1)).string();
    const std::string picture = R"({"image": ")" + file + R"(", "w": 0.1)";
    EXPECT_EQ(drawnOf(picture + R"(, "opacity": 0.5})", {}, 400), 320) << "64 million, in the smallest steps";
    for (const auto& [width, height, most] : {std::tuple{64, 36, 16}, {1922, 1082, 8}}) {
        const auto movie = folder / std::to_string(most);
        Movie::write(movie.string() + ".mp4", 1, width, height);
        const auto video = R"({"video": ")" + movie.string() + R"(.mp4", "w": 0.1, "opacity": 0.5})";
        EXPECT_EQ(drawnOf(video, {}, 20), most) << "as many videos as could stay open";
    }
    EXPECT_EQ(drawnOf(picture + "}", {}, 400), 1) << "of opaque ones in one place only the uppermost shows";
}
