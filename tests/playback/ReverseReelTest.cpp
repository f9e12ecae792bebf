#include "app/editor/playback/ReverseReel.h"
#include "tests/playback/NumberedMovie.h"

using namespace murbo;

namespace {

double during(int number) {
    return (number + 0.1) / numbered::rate;
}

int shown(ReverseReel& reel, int number) {
    auto picture = reel.at(during(number));
    for (int tries = 0; !picture && tries < 20; ++tries) {
        reel.wait(during(number), [] { return false; });
        picture = reel.at(during(number));
    }
    return numbered::in(picture);
}

TEST(ReverseReel, everyPictureComesInFallingOrder) {
    ReverseReel reel(numbered::movie("long.mp4"), 1, during(149), 1.0 / numbered::rate);
    for (int number = 149; number >= 30; --number) ASSERT_EQ(shown(reel, number), number);
}

TEST(ReverseReel, goesFromKeyframeToKeyframeOfAFileThatIsGone) {
    MURBO_NEEDS_FFMPEG();
    const TemporaryFolder folder;
    const auto file = folder / "a.mp4";
    std::filesystem::copy_file(numbered::keyed(), file);
    ReverseReel reel(file, 1, during(149), 1.0 / numbered::rate);
    for (int number = 149; number >= 30; --number) {
        ASSERT_EQ(shown(reel, number), number);
        std::filesystem::remove(file);
    }
}

TEST(ReverseReel, inLargerStepsAPictureWithinTheStep) {
    ReverseReel reel(numbered::movie("long.mp4"), 0, during(149), 4.0 / numbered::rate);
    for (int number = 149; number >= 0; number -= 4) ASSERT_NEAR(shown(reel, number), number, 2.01) << number;
}

TEST(ReverseReel, whatWouldComeTooLateIsLeftForWhatIsAskedFor) {
    ReverseReel reel(numbered::movie("long.mp4"), 0, during(149), 1.0 / 240); // 0.7 s are made ready
    EXPECT_FALSE(reel.at(during(60)));
    reel.wait(during(60), [] { return false; });
    EXPECT_EQ(numbered::in(reel.at(during(60))), 60);
}

TEST(ReverseReel, theFirstAndTheLastPictureAndOneAskedForAHairEarlyCome) {
    const double step = 1.0 / numbered::rate;
    ReverseReel reel(numbered::movie("long.mp4"), 1, 60 * step, step);
    reel.wait(60 * step, [] { return false; });
    for (const double number : {60.0, 58.9, 57.6, 57.1, 55.0}) {
        const auto picture = reel.at(number * step);
        ASSERT_EQ(numbered::in(picture), std::round(number)) << number;
        EXPECT_EQ(picture->extent(), (Rect{0, 0, 640, 360})) << "as large as the file's own";
    }
    // A stretch of 160 pictures that begins within a step of the first.
    const auto file = numbered::movie("longer.mp4", 200);
    ReverseReel far(file, 1.01, 1.04 + 160 * step, step);
    for (int number = 190; number >= 30; number -= 2) ASSERT_EQ(shown(far, number), number);
}

TEST(ReverseReel, waitingEndsWhereNothingIsToBeHad) {
    ReverseReel reel("/nowhere/none.mp4", 0, 3, 1.0 / numbered::rate);
    reel.wait(2, [] { return false; });
    EXPECT_FALSE(reel.at(2));
    reel.wait(1, [] { return false; });
    EXPECT_FALSE(reel.at(1));
    ReverseReel other(numbered::movie("long.mp4"), 0, during(149), 1.0 / numbered::rate);
    int asked = 0;
    other.wait(during(149), [&] { return ++asked > 0; });
    EXPECT_LE(asked, 1) << "who waits may have enough";
}

}
