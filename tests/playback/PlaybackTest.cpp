#include "app/editor/playback/Playback.h"
#include "platform/store/SettingsStore.h"
#include "tests/playback/Recorder.h"

#include <QCoreApplication>
#include <algorithm>
#include <cmath>
#include <limits>

#include <gtest/gtest.h>

using namespace murbo;

namespace {

constexpr double nan = std::numeric_limits<double>::quiet_NaN();

/// A generated video, which needs no file, in cuts of these lengths.
PlayerItem item(const std::vector<double>& lengths) {
    Video video;
    for (const double length : lengths)
        video.cuts.edit().push_back(Cut::generated("none", 1, std::nullopt, length));
    return PlayerItem::video(video, {}, {}, "", std::nullopt);
}

/// A playback on a clock that the test turns.
struct Played : Playback {
    double now = 0;
    int times = 0;

    explicit Played(double length = 10) : Playback([this] { return now; }, {}, nullptr, nullptr) {
        load(item({length}), 0);
        QObject::connect(this, &Playback::timeChanged, [this] { ++times; });
    }

    /// Lets time pass, with a tick at its end.
    void pass(double seconds) {
        now += seconds;
        tick(time() + rate() * seconds);
    }
};

/// Where it stands and how fast it goes.
using At = std::pair<double, double>;
At at(const Playback& playback) {
    return {playback.time(), playback.rate()};
}

TEST(Playback, withoutAnItemNothingMovesIt) {
    Playback playback;
    playback.playPause();
    playback.shuttle(false);
    playback.skim(3);
    playback.endScrub();
    playback.step(1);
    playback.tick(5);
    playback.play({1, 2});
    EXPECT_EQ(at(playback), At(0, 0));
    EXPECT_EQ(playback.span(), Stretch{});
    EXPECT_FALSE(playback.skimmed());
}

TEST(Playback, standsInWhatIsAboutToCome) {
    Played playback;
    playback.playPause();
    playback.await({20, 30}, 20);
    EXPECT_FALSE(playback.isLoaded());
    EXPECT_EQ(at(playback), At(20, 0));
    playback.seek(99);
    EXPECT_DOUBLE_EQ(playback.time(), 29.99);
    playback.load(item({40}), playback.time());
    EXPECT_DOUBLE_EQ(playback.time(), 29.99);
    EXPECT_EQ(playback.rate(), 1) << "what played plays on";
    playback.await({0, 5}, 0);
    playback.pause();
    playback.load(item({5}), 0);
    EXPECT_EQ(playback.rate(), 0) << "unless it was stopped meanwhile";
}

TEST(Playback, whatPlaysGoesOnOverAllThatComes) {
    Played playback;
    playback.shuttle(true);
    playback.shuttle(true);
    playback.await({20, 30}, 20);
    playback.await({0, 4}, 1); // another before the first has come
    EXPECT_EQ(playback.span(), (Stretch{0, 4}));
    playback.load(item({4}), 1);
    EXPECT_EQ(playback.rate(), 2);
    playback.skim(3);
    playback.load(item({6}), 2); // a skim ends with its item
    EXPECT_FALSE(playback.skimmed());
    playback.endScrub();
    EXPECT_EQ(at(playback), At(2, 0));
    playback.await({5, 3}, 4);
    EXPECT_EQ(playback.span(), (Stretch{5, 5}));
}

TEST(Playback, eachPropertyNotifiesOfItsOwnChangesAlone) {
    Played playback;
    std::string said;
    const auto note = [&](auto signal, const char* letter) {
        QObject::connect(&playback, signal, [&said, letter] { said += letter; });
    };
    note(&Playback::timeChanged, "t");
    note(&Playback::rateChanged, "r");
    note(&Playback::spanChanged, "s");
    note(&Playback::frameRateChanged, "f");
    note(&Playback::frameSizeChanged, "z");
    note(&Playback::sourceChanged, "c");
    const auto after = [&](const std::function<void()>& doing) {
        said.clear();
        doing();
        std::ranges::sort(said);
        return said;
    };
    const auto source = UUID::make();
    auto quick = item({10});
    quick.composition.rate = 50;
    auto plan = *quick.composition.box->plan();
    plan.frame = {64, 48};
    EXPECT_EQ(after([&] { playback.seek(4); }), "t");
    EXPECT_EQ(after([&] { playback.seek(4); }), "");
    EXPECT_EQ(after([&] { playback.setSource(source); }), "c");
    EXPECT_EQ(playback.sourceText().toStdString(), source.text());
    EXPECT_EQ(after([&] { playback.setSpan({1, 9}); }), "s");
    EXPECT_EQ(after([&] { playback.setSpan({1, 9}); }), "");
    EXPECT_EQ(after([&] { playback.load(quick, 4); }), "fs");
    EXPECT_EQ(playback.frameRate(), 50);
    EXPECT_EQ(after([&] { playback.refresh(plan); }), "z");
    EXPECT_EQ(playback.frameSize(), QSize(64, 48));
    EXPECT_EQ(after([&] { playback.playPause(); }), "r");
    EXPECT_EQ(after([&] { playback.skim(6); }), "r");
    EXPECT_EQ(after([&] { playback.endScrub(); }), "r");
    EXPECT_EQ(after([&] { playback.pause(); }), "r");
    EXPECT_EQ(after([&] { playback.await({0, 10}, 4); }), "cfsstt") << "the size stays until another comes";
    EXPECT_EQ(after([&] { playback.unload(); }), "stz");
    EXPECT_EQ(playback.sourceText(), QString());
}

TEST(Playback, endsByItsOwnTicksOnceTheLastFrameIsOn) {
    Played playback;
    auto quick = item({10});
    quick.composition.rate = 60; // a frame is shorter than the time before the end at which play stops
    playback.load(std::move(quick), 9);
    playback.playPause();
    const auto turn = [&](double to, const std::function<bool()>& until) {
        playback.now = to - 9;
        while (!until()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    };
    turn(9.5, [&] { return playback.time() > 9; });
    EXPECT_EQ(playback.time(), 9.5);
    turn(9.983, [&] { return playback.time() > 9.5; });
    EXPECT_EQ(playback.rate(), 1) << "the last frame has not begun";
    EXPECT_LT(playback.time(), 9.98);
    turn(9.984, [&] { return playback.rate() == 0; });
    EXPECT_NEAR(playback.time(), 9.984, 1e-9);
}

TEST(Playback, aSeekAfterASkimBringsThePictureBack) {
    Played playback;
    const auto recorder = std::make_shared<Recorder>();
    playback.setSink(recorder, 16, 16);
    playback.seek(2);
    ASSERT_TRUE(recorder->number(60));
    playback.skim(5);
    ASSERT_TRUE(recorder->number(150));
    playback.seek(2); // where its time stood all along
    EXPECT_TRUE(recorder->number(60));
}

TEST(Playback, seeksStayWithinTheSpan) {
    Played playback;
    struct {
        double to, expected;
    } const cases[] = {{4, 4},   {10, 9.99},    {1e308, 9.99},    {-1e308, 0},   {5, 5},
                       {nan, 0}, {9.995, 9.99}, {INFINITY, 9.99}, {-INFINITY, 0}};
    for (const auto& [to, expected] : cases) {
        playback.seek(to);
        EXPECT_DOUBLE_EQ(playback.time(), expected) << to;
    }
    playback.setSpan({2, 2});
    playback.seek(7);
    EXPECT_EQ(playback.time(), 2);
    const int before = playback.times;
    playback.seek(7);
    EXPECT_EQ(playback.times, before);
}

TEST(Playback, playsFromTheStartAgainAtTheEnd) {
    Played playback;
    playback.setSpan({3, 8});
    playback.seek(7.96);
    playback.playPause();
    EXPECT_EQ(at(playback), At(3, 1));
    playback.pass(2);
    EXPECT_EQ(playback.time(), 5);
    playback.playPause();
    EXPECT_EQ(at(playback), At(5, 0));
    playback.playPause();
    playback.pass(2.985);
    EXPECT_EQ(playback.rate(), 0);
    playback.seek(4);
    playback.shuttle(false);
    playback.pass(0.9);
    EXPECT_EQ(playback.rate(), -1);
    playback.pass(0.1);
    EXPECT_EQ(playback.rate(), 0) << "backward at the span's start";
}

TEST(Playback, shuttleDoublesUpToEightTimesAndBeginsAnewTheOtherWay) {
    Played playback(100);
    for (const double expected : {1, 2, 4, 8, 8}) {
        playback.shuttle(true);
        EXPECT_EQ(playback.rate(), expected);
    }
    playback.pass(2);
    for (const double expected : {-1, -2, -4, -8, -8}) {
        playback.shuttle(false);
        EXPECT_EQ(playback.rate(), expected);
    }
    playback.pass(1.9985);
    EXPECT_EQ(playback.rate(), 0);
}

TEST(Playback, aStretchStopsAtItsEndOnce) {
    Played playback;
    playback.play({2, 4});
    playback.pass(1.97);
    EXPECT_EQ(playback.rate(), 1);
    playback.pass(0.02);
    EXPECT_EQ(playback.rate(), 0);
    playback.playPause();
    playback.pass(3);
    EXPECT_EQ(playback.rate(), 1);
    playback.play({5, nan});
    playback.pass(4);
    EXPECT_EQ(playback.rate(), 1);
    playback.pass(0.99);
    EXPECT_EQ(playback.rate(), 0);
    playback.play({8, 99});
    playback.pass(2);
    EXPECT_EQ(playback.rate(), 0) << "where the video ends";
}

TEST(Playback, aSkimLeavesTheTimeAndComesBack) {
    Played playback;
    playback.seek(2);
    playback.shuttle(true);
    playback.shuttle(true);
    playback.pass(1);
    playback.skim(8);
    playback.skim(9);
    EXPECT_EQ(playback.rate(), 0);
    playback.tick(9);
    EXPECT_EQ(playback.time(), 4);
    EXPECT_EQ(playback.skimmed(), 9);
    playback.endScrub();
    EXPECT_EQ(at(playback), At(4, 2));
    // A press of play ends the skim, and nothing of it is left for its late end.
    playback.skim(8);
    playback.playPause();
    playback.playPause();
    playback.endScrub();
    EXPECT_EQ(at(playback), At(4, 0));
}

TEST(Playback, aScrubThatSeeksPlaysOnFromThere) {
    Played playback;
    playback.playPause();
    playback.skim(5);
    playback.seek(6);
    EXPECT_FALSE(playback.skimmed());
    playback.endScrub();
    EXPECT_EQ(at(playback), At(6, 1));
    playback.step(-0.5);
    EXPECT_EQ(at(playback), At(5.5, 0));
    for (const bool stops : {true, false}) { // a command within a scrub is the last word
        playback.playPause();
        playback.skim(3);
        stops ? playback.pause() : playback.step(0.5);
        playback.endScrub();
        EXPECT_EQ(playback.rate(), 0) << stops;
    }
    EXPECT_EQ(playback.time(), 6);
    playback.seek(9.995);
    playback.setSpan({2, 2.005}); // shorter than a picture
    playback.seek(2.5);
    EXPECT_EQ(playback.time(), 2);
}

TEST(Playback, aTimeThatIsNoneCountsAsTheStart) {
    Played playback;
    playback.setSpan({8, 2});
    EXPECT_EQ(playback.span(), (Stretch{8, 8}));
    playback.setSpan({1, 9});
    playback.seek(4);
    playback.playPause();
    playback.tick(nan);
    EXPECT_EQ(playback.time(), 1);
}

TEST(Playback, anotherItemKeepsPlayingAndAnEmptySpanAfterUnloading) {
    Played playback;
    playback.setSource(UUID::make());
    playback.play({1, 3});
    playback.load(item({2, 4}), 5);
    EXPECT_EQ(playback.time(), 5);
    EXPECT_EQ(playback.span(), (Stretch{0, 6}));
    EXPECT_EQ(playback.rate(), 1);
    playback.load(item({2}), 5);
    EXPECT_DOUBLE_EQ(playback.time(), 1.99);
    playback.unload();
    EXPECT_EQ(playback.span(), Stretch{});
    EXPECT_EQ(at(playback), At(0, 0));
    EXPECT_FALSE(playback.source());
}

TEST(Playback, aRemixAsksForTheSamePictures) {
    Playback playback;
    EXPECT_FALSE(playback.remix(item({2, 4})));
    playback.load(item({2, 4}), 1);
    playback.playPause();
    EXPECT_TRUE(playback.remix(item({2, 4})));
    EXPECT_FALSE(playback.remix(item({2, 5})));
    EXPECT_FALSE(playback.remix(item({6})));
    EXPECT_EQ(playback.rate(), 1);
}

}
