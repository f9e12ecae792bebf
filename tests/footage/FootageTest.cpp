#include "core/render/footage/Footage.h"
#include "tests/MadeMedia.h"
#include "tests/TemporaryFolder.h"
#include "tests/footage/Movie.h"

#include <cmath>
#include <thread>

#include <gtest/gtest.h>

using namespace murbo;

namespace {

const TemporaryFolder folder;

const std::filesystem::path& movie() {
    static const std::filesystem::path path = [] {
        Movie::write(folder / "movie.mp4", 180);
        return folder / "movie.mp4";
    }();
    return path;
}

/// The number of the picture that is on at a time, half a picture off its edge.
double at(int number) {
    return (number + 0.5) / Movie::rate;
}

}

TEST(Footage, isExactForwardBackwardAndInJumps) {
    Footage footage(movie());
    EXPECT_EQ(footage.area(), 128 * 64) << "before anything else is asked";
    EXPECT_NEAR(Footage(movie()).length(), 6, 0.05);
    const int ways[] = {0,  0,  1,  2,  3,   5,   8,   8,   7,   6,   6,   7, // playing and stepping back
                        50, 51, 52, 53, 90,  91,  92, // a jump, then playing from there
                        10, 9,  8,  7,  100, 130, 131, 100, 101, 140, 179, 179}; // skimming
    for (const int number : ways) EXPECT_EQ(Movie::number(footage.frame(at(number))), number);
}

TEST(Footage, keepsPicturesApartThatShareAPlaceAmongTheStills) {
    Movie::write(folder / "fast.mp4", 60, 128, 64, 60);
    // What is kept is forgotten at each picture, at some, and never.
    for (const std::int64_t bytes : {0, 128 * 64 * 4, 1 << 20}) {
        Footage footage(folder / "fast.mp4", bytes);
        for (int round = 0; round < 3; ++round)
            for (const int number : {41, 10, 40, 11, 50, 10})
                EXPECT_EQ(Movie::number(footage.frame((number + 0.5) / 60)), number) << bytes;
    }
}

TEST(Footage, countsAPictureThatGivesWayToAnotherNoMore) {
    Movie::write(folder / "fast.mp4", 60, 128, 64, 60);
    Footage footage(folder / "fast.mp4", 3 * 128 * 64 * 2); // room for three
    const auto kept = footage.frame(41.5 / 60);
    for (int round = 0; round < 5; ++round) {
        for (const int number : {11, 10}) footage.frame((number + 0.5) / 60); // in one place
        EXPECT_TRUE(footage.frame(41.5 / 60)->isSameAs(*kept)) << round;
    }
}

TEST(Footage, keepsNinetyOneStillsAtMost) {
    Footage footage(movie());
    const auto kept = footage.frame(at(170));
    for (int number = 169; number > 169 - 90; --number) footage.frame(at(number));
    EXPECT_TRUE(footage.frame(at(170))->isSameAs(*kept));
    footage.frame(at(60));
    EXPECT_FALSE(footage.frame(at(170))->isSameAs(*kept));
}

TEST(Footage, ofUnevenTimesMeetsEachWithinAMillisecond) {
    MURBO_NEEDS_FFMPEG();
    Footage footage(
        made::file("uneven.mp4",
                   "-i " + made::quoted(movie()) +
                       " -vf settb=1/1000,setpts='N*40+13*mod(N\\,3)' -fps_mode "
                       "passthrough -enc_time_base 1/1000 -video_track_timescale 1000 -c:v libx264 -qp 4"));
    for (const int number : {50, 51, 20, 70, 71, 72}) {
        const double time = (number * 40 + 13 * (number % 3)) / 1000.0;
        EXPECT_EQ(Movie::number(footage.frame(time - 0.004)), number - 1);
        EXPECT_EQ(Movie::number(footage.frame(time - 0.0008)), number);
    }
}

TEST(Footage, holdsTheEdgesOfTheFile) {
    Footage footage(movie());
    EXPECT_EQ(Movie::number(footage.frame(-5)), 0);
    for (const double time : {5.9, 6.0, 6.1, 6.2, 6.3, 99.0, 99.1, 1e300})
        EXPECT_EQ(Movie::number(footage.frame(time)), time < 5.95 ? 177 : 179) << time;
    EXPECT_FALSE(footage.frame(NAN));
    for (const double time : {0.0, 1.0 / 30 - 0.002}) EXPECT_EQ(Movie::number(footage.frame(time)), 0);
    EXPECT_EQ(Movie::number(footage.frame(1.0 / 30 - 0.0005)), 1) << "two times within a millisecond are one";
}

TEST(Footage, ofWhatIsNoFootageThereIsNothing) {
    folder.file("words.mp4", "no movie");
    for (const char* name : {"words.mp4", "nowhere.mp4"}) {
        Footage footage(folder / name);
        EXPECT_EQ(footage.area(), 0);
        EXPECT_FALSE(footage.frame(0));
        EXPECT_FALSE(footage.frame(0.01));
        EXPECT_EQ(footage.length(), 0);
    }
}

TEST(Footage, servesManyThreads) {
    Footage footage(movie());
    std::atomic<int> wrong = 0;
    std::vector<std::jthread> threads;
    for (int thread = 0; thread < 4; ++thread)
        threads.emplace_back([&, thread] {
            for (int step = 0; step < 40; ++step) {
                const int number = thread % 2 == 0 ? thread * 40 + step : (step * 37 + thread) % 180;
                if (Movie::number(footage.frame(at(number))) != number) ++wrong;
            }
        });
    threads.clear();
    EXPECT_EQ(wrong, 0);
}
