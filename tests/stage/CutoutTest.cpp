#include "core/render/footage/Footage.h"
#include "core/render/stage/PlaybookMedia.h"
#include "platform/image/draw/Canvas.h"
#include "platform/vision/SubjectMask.h"
#include "tests/SameBitmaps.h"
#include "tests/TemporaryFolder.h"
#include "tests/footage/Movie.h"

#include <array>

#include <gtest/gtest.h>

using namespace murbo;

TEST(Cutout, isTheSameInWhateverOrderFramesAreDrawn) {
    std::vector<Image> cut;
    const TemporaryFolder folder;
    Movie::write(folder / "a.mp4", 12);
    const auto drawn = [](const Image& image) { return Canvas::bitmap(image, {0, 0, 128, 64}); };
    {
        PlaybookMedia media;
        Footage footage(folder / "a.mp4");
        for (int frame = 0; frame < 12; ++frame) cut.push_back(media.cutout(*footage.frame(frame / 30.0)));
        EXPECT_TRUE(media.cutout(Image::colour(Colour::white)).extent().isEverything());
        EXPECT_TRUE(media.cutout(Image()).empty());
    }
    // The images outlive the media.
    std::vector<Bitmap> forward;
    for (const auto& image : cut) forward.push_back(drawn(image));
    for (std::size_t frame = cut.size(); frame-- > 0;)
        EXPECT_TRUE(same(drawn(cut[frame]), forward[frame])) << frame;
}

namespace {

/// A recording of people, and what finds them.
class CutoutOfPeople : public testing::Test {
protected:
    void SetUp() override {
        if (!SubjectMask::available()) GTEST_SKIP() << "The weights of the subject masks are not here.";
        if (!std::filesystem::exists(file)) GTEST_SKIP() << "The footage of people is not here.";
        frame = Footage(file).frame(14);
    }
    const std::filesystem::path file = std::filesystem::path(MURBO_FOOTAGE) / "actors-battle.webm";
    std::optional<Image> frame;
    PlaybookMedia media;
};

}

TEST_F(CutoutOfPeople, areTakenOutOfThePicture) {
    const Image person = media.cutout(frame->transformed(Transform().translated(50, 20)));
    EXPECT_EQ(person.extent(), (Rect{50, 20, frame->extent().width, frame->extent().height}));
    const Bitmap bitmap = Canvas::bitmap(person, person.extent());
    std::array<double, 3> shares{}; // clear, between, solid
    for (int y = 0; y < bitmap.height(); ++y)
        for (int x = 0; x < bitmap.width(); ++x) {
            const int alpha = bitmap.row(y)[x * 4 + 3];
            shares[alpha < 10 ? 0 : alpha > 245 ? 2 : 1] += 1.0 / bitmap.width() / bitmap.height();
        }
    EXPECT_GT(shares[0], 0.2);
    EXPECT_GT(shares[2], 0.05);
}

TEST_F(CutoutOfPeople, areLookedForInASmallPictureAsItIs) {
    const Rect whole = frame->extent();
    const auto reduced = Transform().scaled(240 / whole.width, 136 / whole.height);
    const Bitmap picture = Canvas::bitmap(frame->transformed(reduced), {0, 0, 240, 136});
    const auto mask = SubjectMask::of(picture);
    ASSERT_TRUE(mask);
    const Bitmap cut = Canvas::bitmap(media.cutout(Image::bitmap(picture)), {0, 0, 240, 136});
    for (int y = 0; y < 136; ++y)
        for (int x = 0; x < 240; ++x)
            ASSERT_NEAR(cut.row(y)[x * 4 + 3], mask->row(y)[x * 4 + 3], 1) << x << ' ' << y;
}
