#include "platform/image/draw/Canvas.h"
#include "platform/media/FrameReader.h"
#include "platform/vision/MaskRefinement.h"
#include "platform/vision/SubjectMask.h"
#include "tests/Environment.h"
#include "tests/SameBitmaps.h"
#include "tests/TemporaryFolder.h"
#include "tests/image/Targets.h"
#include "tests/vision/GreyPicture.h"

#include <random>
#include <thread>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace murbo;

namespace {

const std::filesystem::path footage = MURBO_FOOTAGE;
const std::filesystem::path talk = footage / "talk-seven-people.mp4";

int alpha(const Bitmap& mask, double x, double y) {
    return mask.row(int(y * mask.height()))[4 * int(x * mask.width()) + 3];
}

class SubjectMaskTest : public testing::Test {
protected:
    void SetUp() override {
        const auto program = std::filesystem::read_symlink("/proc/self/exe").parent_path();
        if (!std::filesystem::exists(program / "subject"))
            GTEST_SKIP() << "the weights that find people are not installed";
        ASSERT_TRUE(SubjectMask::available());
    }

    /// The part of a file's picture from `left` to `right`, in shares of its width.
    static Bitmap frame(const std::filesystem::path& file, double time, double left = 0, double right = 1) {
        const Image image = Image::frame(FrameReader::open(file).at(time)->frame);
        const Rect extent = image.extent();
        return Canvas::bitmap(image, {left * extent.width, 0, (right - left) * extent.width, extent.height});
    }
};

}

TEST_F(SubjectMaskTest, findsPeopleInEveryShapeOfPicture) {
    if (!std::filesystem::exists(talk)) GTEST_SKIP() << "the footage is not here";
    const auto check = [](const Bitmap& picture, double x, double y) {
        const auto mask = SubjectMask::of(picture);
        ASSERT_TRUE(mask);
        EXPECT_EQ(mask->width(), picture.width());
        EXPECT_EQ(alpha(*mask, x, y), 255);
        for (const double corner : {0.01, 0.97}) EXPECT_EQ(alpha(*mask, corner, 0.03), 0);
        EXPECT_LT(MaskRefinement::share(*mask), 0.7);
    };
    check(frame(talk, 1), 0.5, 0.6);
    check(frame(talk, 10, 0.2, 0.8), 0.5, 0.5);
    const auto wide = footage / "people-no-audio.mp4";
    check(frame(wide, 30), 0.6, 0.35);
    check(frame(wide, 130, 0.5, 0.816), 0.24, 0.4);
    EXPECT_FALSE(SubjectMask::of(frame(wide, 50))) << "a room with nobody in it";
}

TEST_F(SubjectMaskTest, findsNobodyWhereNobodyIs) {
    std::minstd_rand random;
    EXPECT_FALSE(SubjectMask::of(greyPicture(300, 500, [&](int, int) { return random() % 256; })));
    EXPECT_FALSE(SubjectMask::of(greyPicture(512, 288, [](int, int) { return 128; })));
    EXPECT_FALSE(SubjectMask::of(greyPicture(1, 1, [](int, int) { return 255; })));
    EXPECT_FALSE(SubjectMask::of(Bitmap()));
}

TEST_F(SubjectMaskTest, isTheSameOnEveryThreadAndInstructionSet) {
    if (!std::filesystem::exists(talk)) GTEST_SKIP() << "the footage is not here";
    const Bitmap square = frame(talk, 4);
    const auto expected = SubjectMask::of(square);
    ASSERT_TRUE(expected);
    std::vector<std::thread> threads;
    std::vector<int> alike(4);
    for (int& good : alike)
        threads.emplace_back([&] {
            for (int i = 0; i < 3; ++i) good += same(*SubjectMask::of(square), *expected);
        });
    for (auto& thread : threads) thread.join();
    EXPECT_THAT(alike, testing::Each(3));
    onEachTarget([&](const char* name) { EXPECT_TRUE(same(*SubjectMask::of(square), *expected)) << name; });
}

// In a process of its own, since the networks are read once.
TEST(SubjectMaskDeathTest, withNetworksThatAreNoneThereIsNoMaskAndNoFailure) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    const TemporaryFolder folder;
    folder.file("square.tflite", "TFL");
    const auto alone = [&] {
        const Environment place("MURBO_SUBJECT", folder.path.string());
        const bool nothing = !SubjectMask::available() && !SubjectMask::of(Bitmap(32, 32));
        std::_Exit(nothing ? 0 : 1);
    };
    EXPECT_EXIT(alone(), testing::ExitedWithCode(0), "");
}
