#include "core/model/Source.h"
#include "core/render/footage/Filmstrip.h"
#include "tests/TemporaryFolder.h"
#include "tests/footage/Movie.h"

#include <cmath>
#include <thread>

#include <gtest/gtest.h>

using namespace murbo;

namespace {

struct Strip {
    Strip() { std::filesystem::create_directories(folder / "a.mbproj"); }

    TemporaryFolder folder;
    Source source{.path = folder / "movie.mp4"};
    std::filesystem::path stills = folder / "a.mbproj" / "cache" / "stills" / source.id.text();

    Filmstrip inPackage() const { return Filmstrip(source, folder / "a.mbproj"); }
};

}

TEST(Filmstrip, keepsNothingInAPackageThatHasBeenMovedAway) {
    const Strip strip;
    Movie::write(strip.source.path, 90, 640, 360);
    auto filmstrip = strip.inPackage();
    std::filesystem::rename(strip.folder / "a.mbproj", strip.folder / "b.mbproj");
    EXPECT_TRUE(filmstrip.make(2));
    EXPECT_FALSE(std::filesystem::exists(strip.folder / "a.mbproj"));
}

TEST(Filmstrip, makesSmallPicturesAndKeepsThem) {
    Strip strip;
    Movie::write(strip.source.path, 90, 640, 360);
    auto filmstrip = strip.inPackage();
    EXPECT_FALSE(filmstrip.still(2));
    const auto made = filmstrip.make(2);
    ASSERT_TRUE(made);
    EXPECT_EQ(made->width(), 320);
    EXPECT_EQ(made->height(), 180);
    EXPECT_EQ(Movie::number(made), 60);
    EXPECT_EQ(filmstrip.still(2)->row(0), made->row(0)) << "the same pixels";

    std::filesystem::remove(strip.source.path);
    auto later = strip.inPackage();
    EXPECT_NEAR(Movie::number(later.make(2)), 60, 2) << "out of the package";
    EXPECT_FALSE(later.make(1));
}

TEST(Filmstrip, doesNotTrustWhatLiesInTheCache) {
    Strip strip;
    Movie::write(strip.source.path, 90);
    strip.folder.file(strip.stills / "1.jpg", "no picture");
    strip.folder.file(strip.stills / "2.jpg", std::string(3 << 20, 'x'));
    std::filesystem::create_directories(strip.stills / "0.jpg");
    auto filmstrip = strip.inPackage();
    EXPECT_EQ(Movie::number(filmstrip.make(1)), 30);
    EXPECT_EQ(Movie::number(filmstrip.make(2)), 60);
    EXPECT_EQ(Movie::number(filmstrip.make(0)), 0) << "where nothing can be kept";
    EXPECT_NEAR(Movie::number(strip.inPackage().make(1)), 30, 2) << "mended";
}

TEST(Filmstrip, dropsTheOldestOfSixHundred) {
    Strip strip;
    Movie::write(strip.source.path, 3, 64, 64);
    Filmstrip filmstrip(strip.source);
    // The same ones made on several threads at once count once.
    std::vector<std::jthread> threads;
    for (int thread = 0; thread < 4; ++thread)
        threads.emplace_back([&] {
            for (int second = 0; second < 20; ++second) filmstrip.make(second);
        });
    threads.clear();
    for (int second = 0; second < 600; ++second) filmstrip.make(second);
    EXPECT_TRUE(filmstrip.still(0)) << "as many as are kept";
    filmstrip.make(600);
    EXPECT_FALSE(filmstrip.still(0));
    EXPECT_TRUE(filmstrip.still(1));
    ASSERT_TRUE(filmstrip.still(600));
    EXPECT_EQ(filmstrip.still(600)->width(), 64) << "small pictures stay as they are";
}

TEST(Filmstrip, stepsByPowersOfTwo) {
    const std::tuple<double, double, int> cases[] = {{40, 10, 4},      {50, 10, 8}, {10, 10, 1},
                                                     {10.01, 10, 2},   {0, 10, 1},  {-5, 10, 1},
                                                     {40, 0, 1 << 19}, {NAN, 1, 1}, {HUGE_VAL, 1, 1 << 30}};
    for (const auto& [tile, points, expected] : cases)
        EXPECT_EQ(Filmstrip::step(tile, points), expected) << tile;
}
