#include "core/ai/NotesFromFrames.h"
#include "platform/image/Jpeg.h"
#include "tests/MadeMedia.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

using namespace murbo;
using testing::ElementsAre;

TEST(NotesFromFrames, framesAreSpreadEvenly) {
    EXPECT_THAT(NotesFromFrames::times({10, 10.5}), ElementsAre(10.25));
    EXPECT_THAT(NotesFromFrames::times({10, 14}), ElementsAre(11, 13));
    EXPECT_EQ(NotesFromFrames::times({0, 7200}).size(), 6u);
    EXPECT_EQ(NotesFromFrames::times({5, 5}).size(), 1u);
}

TEST(NotesFromFrames, framesAreSmallPictures) {
    if (!made::canMake()) GTEST_SKIP() << "There is no ffmpeg here.";
    const Source source{.path =
                            made::file("wide.mp4", "-f lavfi -i testsrc2=s=1600x900:r=25:d=5 -c:v libx264")};
    const auto frames = NotesFromFrames::frames(source, {0, 4}, {});
    ASSERT_EQ(frames.size(), 2u);
    const auto picture = Jpeg::decode(frames[0]);
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->width(), 768);
    EXPECT_EQ(picture->height(), 432);
    EXPECT_NE(frames[0], frames[1]);
}

TEST(NotesFromFrames, aNoteIsNoLongerThanItMayBe) {
    EXPECT_EQ(NotesFromFrames::words({{"note", std::string(1'000'000, 'x')}}), std::string(1'000, 'x'));
}
