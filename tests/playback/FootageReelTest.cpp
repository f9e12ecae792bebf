#include "app/editor/playback/FootageReel.h"
#include "tests/playback/NumberedMovie.h"

#include <random>

using namespace murbo;

namespace {

const std::stop_token none;

/// The time in the middle of a picture.
double during(int number) {
    return (number + 0.5) / numbered::rate;
}

std::stop_token stopped() {
    std::stop_source source;
    source.request_stop();
    return source.get_token();
}

TEST(FootageReel, givesThePictureThatIsOnWhateverTheOrder) {
    FootageReel reel(numbered::movie("long.mp4"));
    for (const int number : {97, 98, 96, 12, 13, 60, 59, 58, 61, 149, 0}) {
        EXPECT_EQ(numbered::in(reel.at(during(number), none)), number);
        if (number % 3 == 0) reel.readBefore(during(number));
    }
    EXPECT_EQ(numbered::in(reel.at(50.0 / numbered::rate, none)), 50) << "at its very start";
    EXPECT_EQ(numbered::in(reel.at(-1, none)), 0);
    EXPECT_EQ(numbered::in(reel.at(99, none)), 149);
}

TEST(FootageReel, whateverIsAskedInWhateverOrderNoOtherPictureComes) {
    MURBO_NEEDS_FFMPEG();
    FootageReel reel(numbered::keyed());
    std::mt19937 random(11);
    int number = 0;
    for (int count = 0; count < 500; ++count) {
        // In steps for the most part, and now and then from before the start.
        number = random() % 20 == 0   ? -1
                 : random() % 12 == 0 ? static_cast<int>(random() % 150)
                                      : std::clamp(number + static_cast<int>(random() % 31) - 15, -1, 149);
        // At its very start as often as within, and the first of a keyframe's as often as any.
        const int asked = std::max(random() % 3 == 0 ? number / 12 * 12 : number, 0);
        const double time = number < 0          ? -0.5
                            : random() % 2 == 0 ? during(asked)
                                                : asked / double(numbered::rate);
        switch (random() % 6) {
            case 0:
                reel.readBefore(time);
                break;
            case 1:
                reel.thin();
                break;
            case 2:
                if (const auto near = reel.nearest(time, 0.1)) {
                    EXPECT_EQ(numbered::in(near->frame), std::lround(near->time * numbered::rate)) << count;
                }
                break;
            default:
                ASSERT_EQ(numbered::in(reel.at(time, none)), asked) << count;
                EXPECT_TRUE(reel.holds(time) && reel.isNear(time)) << count;
        }
        if (reel.holds(time)) {
            ASSERT_EQ(numbered::in(reel.atHand(time)), asked) << count;
        }
    }
}

TEST(FootageReel, keepsWhatItReadAndSaysSo) {
    FootageReel reel(numbered::movie("long.mp4"));
    EXPECT_FALSE(reel.holds(during(100)) || reel.atHand(during(100)) || reel.isNear(during(100)));
    reel.at(during(100), none);
    EXPECT_TRUE(reel.holds(during(100)));
    EXPECT_EQ(numbered::in(reel.atHand(during(98))), 98) << "those before come by on the way";
    EXPECT_FALSE(reel.atHand(during(102)));
    EXPECT_TRUE(reel.isNear(during(110)));
    EXPECT_FALSE(reel.isNear(during(120)) || reel.isNear(during(50)));
    reel.thin();
    EXPECT_FALSE(reel.holds(during(98)));
    EXPECT_EQ(numbered::in(reel.at(during(101), none)), 101);
}

TEST(FootageReel, whatIsReadBeforeAPlaceCountsOnlyThere) {
    FootageReel back(numbered::movie("long.mp4"));
    back.at(during(100), none);
    back.readBefore(during(95));
    EXPECT_EQ(numbered::in(back.at(during(75), none)), 75);
    EXPECT_TRUE(back.holds(during(98))) << "it had not to jump";
    FootageReel on(numbered::movie("long.mp4"));
    on.at(during(100), none);
    on.readBefore(during(95));
    for (const int number : {115, 128, 80, 95}) EXPECT_EQ(numbered::in(on.at(during(number), none)), number);
    FootageReel full(numbered::movie("long.mp4"));
    for (const int number : {100, 112}) full.at(during(number), none);
    full.readBefore(during(94)); // with what is there more than is kept
    for (const int number : {80, 110, 111}) EXPECT_EQ(numbered::in(full.at(during(number), none)), number);
}

TEST(FootageReel, atTheEndsItHoldsAllBeyond) {
    FootageReel reel(numbered::movie("long.mp4"));
    reel.at(-1, none);
    EXPECT_TRUE(reel.holds(-5) && reel.isNear(-5));
    for (int number = 0; number < 60; ++number) reel.at(during(number), none);
    EXPECT_FALSE(reel.holds(during(2)) || reel.holds(-5)) << "it has been let go";
    EXPECT_EQ(numbered::in(reel.at(during(2), none)), 2);
    EXPECT_TRUE(reel.nearest(-1, 0.1) && reel.holds(-1));
    reel.at(during(149) + 1, none);
    EXPECT_TRUE(reel.holds(500) && reel.isNear(500));
}

TEST(FootageReel, aNearPictureIsAKeptOneWithinTheToleranceElseAKeyframe) {
    FootageReel reel(numbered::movie("long.mp4"));
    reel.at(during(100), none);
    const auto kept = reel.nearest(100.0 / numbered::rate + 0.09, 0.1);
    ASSERT_TRUE(kept);
    EXPECT_NEAR(kept->time, 101.0 / numbered::rate, 0.5 / numbered::rate + 1e-6);
    const auto far = reel.nearest(during(140), 0.1);
    ASSERT_TRUE(far);
    EXPECT_LE(far->time, during(140));
    EXPECT_FALSE(reel.holds(during(100))) << "what lay elsewhere is let go";
    EXPECT_EQ(numbered::in(reel.at(during(140), none)), 140);
}

TEST(FootageReel, nothingComesOnceItIsStopped) {
    FootageReel reel(numbered::movie("long.mp4"));
    EXPECT_FALSE(reel.at(during(100), stopped()));
    EXPECT_EQ(numbered::in(reel.at(during(100), none)), 100);
    EXPECT_EQ(numbered::in(reel.at(during(99), stopped())), 99) << "it is at hand";
}

TEST(FootageReel, aFileThatIsGoneOrAnotherIsKnown) {
    const TemporaryFolder folder;
    FootageReel missing(folder / "none.mp4");
    EXPECT_FALSE(missing.open());
    EXPECT_FALSE(missing.at(0, none) || missing.nearest(0, 1));
    const auto file = folder / "a.mp4";
    std::filesystem::copy_file(numbered::movie("short.mp4", 20), file);
    FootageReel reel(file);
    EXPECT_FALSE(reel.isCurrent()) << "it was not opened yet";
    EXPECT_TRUE(reel.open());
    EXPECT_TRUE(reel.isCurrent());
    EXPECT_EQ(reel.file(), file);
    std::filesystem::last_write_time(file, std::filesystem::last_write_time(file) + std::chrono::seconds(2));
    EXPECT_FALSE(reel.isCurrent());
    std::filesystem::remove(file);
    EXPECT_FALSE(reel.isCurrent());
}

}
