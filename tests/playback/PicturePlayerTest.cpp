#include "app/editor/playback/Player.h"
#include "core/render/Stills.h"
#include "tests/TemporaryFolder.h"
#include "tests/playback/Recorder.h"
#include "tests/render/Samples.h"

#include <thread>

#include <gtest/gtest.h>

using namespace murbo;

namespace {

constexpr int side = 240;
constexpr int rate = 30;

/// A player on a clock that the test turns, showing a video of numbered footage.
class Showing {
public:
    explicit Showing(const std::vector<samples::Stretch>& stretches, int footageRate = rate) {
        for (const char* name : {"a.mp4", "b.mp4"}) samples::writeNumbered(folder / name, 150, footageRate);
        project = samples::project({folder / "a.mp4", folder / "b.mp4"});
        video = samples::video(project, stretches);
        load(0);
    }

    PlayerItem item() const { return PlayerItem::video(video, project, {}, "", std::nullopt); }
    void load(double at) {
        player.load(item(), at);
        player.setSink(recorder, side, side);
    }

    /// The still of a time, for the size of the view.
    Bitmap still(double at) const {
        PlanBox box(Plan::video(video, project, "", {}));
        const auto image = Stills::frame({video, project, {}}, at, box);
        const auto frame = Plan::frameSize(video.aspect);
        return samples::drawn(image.transformed(Transform().scaled(side / frame.width, side / frame.height)),
                              side, side);
    }
    void turnTo(double time) { now = time; }
    /// Runs once its first picture is there.
    bool begins(double speed = 1) {
        const bool stands = recorder->exact().has_value();
        player.run(speed);
        return stands;
    }
    /// The number that frame shows once it comes; −2 where it does not.
    int shown(std::int64_t frame) {
        const auto given = recorder->number(frame);
        return given ? samples::numberIn(given->picture) : -2;
    }

    std::atomic<double> now = 0;
    TemporaryFolder folder;
    Project project;
    Video video;
    std::shared_ptr<Recorder> recorder = std::make_shared<Recorder>();
    Player player{[this] { return now.load(); }};
};

TEST(PicturePlayer, aStandingPictureIsTheStill) {
    Showing showing({{0, 1, 2}, {1, 0.5, 1.5}, {0, 3, 4}});
    const struct {
        double asked, shown; // just before a cut is at it
    } cases[] = {{0, 0},       {0.5, 0.5}, {0.517, 0.517}, {0.99999, 1},       {1.7, 1.7},
                 {2.99, 2.99}, {0.4, 0.4}, {2, 2},         {0.36667, 0.36667}, {2.95, 2.95}};
    for (const auto& [asked, shown] : cases) {
        showing.player.stand(asked);
        const auto frame = showing.recorder->next(
            [time = shown](const auto& each) { return each.exact && each.time == time; });
        ASSERT_TRUE(frame) << asked;
        EXPECT_TRUE(same(frame->picture, showing.still(asked))) << asked;
        EXPECT_EQ(frame->number, static_cast<std::int64_t>(shown * rate + 0.01)) << asked;
    }
}

TEST(PicturePlayer, aHandThatMovesSeesPicturesNearByFirst) {
    Showing showing({{0, 0, 5}});
    int near = 0;
    for (int turn = 1; turn <= 20; ++turn) {
        const double at = std::fmod(turn * 1.37, 4.9);
        showing.player.skim(at);
        const auto isThere = [&](const auto& frame) { return std::abs(frame.time - at) < 1e-6; };
        auto frame = showing.recorder->next(isThere);
        if (frame && !frame->exact) ++near, frame = showing.recorder->next(isThere);
        ASSERT_TRUE(frame && frame->exact) << "and the right one after it";
    }
    EXPECT_GT(near, 0) << "but where that is as quick";
    // It moves on without a rest, far faster than pictures of that size are drawn.
    showing.player.setSink(showing.recorder, 2000, 2000);
    const auto begun = std::chrono::steady_clock::now();
    for (const double at : {2.1, 3.2, 0.3, 4.4}) {
        showing.player.stand(at);
        ASSERT_TRUE(showing.recorder->next([=](const auto& each) { return each.exact && each.time == at; }));
    }
    const auto passed = [&, first = showing.recorder->numbers().size()] {
        return showing.recorder->numbers().size() - first;
    };
    const auto limit = std::chrono::steady_clock::now() + 10 * (std::chrono::steady_clock::now() - begun);
    for (int turn = 0; passed() < 4 && std::chrono::steady_clock::now() < limit; ++turn) {
        showing.player.skim(std::fmod(turn * 0.0137, 4.9));
        std::this_thread::yield();
    }
    EXPECT_GE(passed(), 4u) << "what it passes is shown while it moves";
    showing.player.stand(1.1);
    const auto frame =
        showing.recorder->next([](const auto& each) { return std::abs(each.time - 1.1) < 1e-6; });
    EXPECT_TRUE(frame && frame->exact);
    showing.player.unload();
    showing.player.setSink(showing.recorder, side / 2, side / 2);
    const auto before = showing.recorder->numbers().size();
    std::this_thread::sleep_for(std::chrono::milliseconds(60));
    EXPECT_EQ(showing.recorder->numbers().size(), before) << "of what is gone nothing more";
}

TEST(PicturePlayer, aSeekOfARunShowsThePlaceItselfAndNothingBeforeItsTime) {
    Showing showing({{0, 0, 2}, {1, 0, 2}});
    for (const int speed : {1, 2, -1, -2}) {
        showing.turnTo(0);
        showing.player.stand(1);
        ASSERT_TRUE(showing.recorder->next([](const auto& each) { return each.exact && each.number == 30; }));
        showing.player.run(speed);
        const auto before = showing.recorder->numbers().size();
        showing.player.seek(3);
        ASSERT_TRUE(showing.recorder->number(90)) << speed;
        // The clock stands: who waits for a while finds none of those that come.
        std::this_thread::sleep_for(std::chrono::milliseconds(60));
        const auto numbers = showing.recorder->numbers();
        for (auto at = before; at < numbers.size(); ++at)
            EXPECT_TRUE(numbers[at] == 90 || numbers[at] == 30) << speed << ": " << numbers[at];
    }
}

TEST(PicturePlayer, framesThatComeTooLateAreDroppedAndCounted) {
    Showing showing({{0, 0, 4}});
    ASSERT_TRUE(showing.begins());
    showing.turnTo(0.1);
    ASSERT_TRUE(showing.recorder->number(3));
    showing.turnTo(2);
    const auto shown = showing.recorder->next([](const auto& frame) { return frame.number >= 60; });
    ASSERT_TRUE(shown);
    EXPECT_EQ(samples::numberIn(shown->picture), shown->number);
    const auto numbers = showing.recorder->numbers();
    EXPECT_TRUE(std::ranges::is_sorted(numbers));
    EXPECT_GE(showing.player.counts().dropped, 40);
}

TEST(PicturePlayer, aNewPlanIsDrawnAtOnceAndStopsNothing) {
    Showing showing({{0, 0, 4}});
    ASSERT_TRUE(showing.recorder->exact());
    auto plan = *showing.player.item()->composition.box->plan();
    plan.shots[0].shot.zoom = 2;
    showing.player.refresh(plan);
    const auto changed = showing.recorder->exact();
    ASSERT_TRUE(changed);
    EXPECT_FALSE(same(changed->picture, showing.still(0)));
    showing.player.run(1);
    for (std::int64_t frame = 1; frame <= 20; ++frame) {
        if (frame % 5 == 0) showing.player.refresh(plan);
        showing.turnTo(static_cast<double>(frame) / rate);
        ASSERT_TRUE(showing.recorder->number(frame)) << frame;
    }
    EXPECT_EQ(showing.player.counts().dropped, 0);
}

TEST(PicturePlayer, filesThatVanishOrShrinkStopNothing) {
    Showing showing({{0, 0, 2}, {1, 1, 3}, {0, 3, 4}});
    ASSERT_TRUE(showing.begins());
    for (std::int64_t frame = 1; frame < 150; ++frame) {
        if (frame == 20) std::filesystem::resize_file(showing.folder / "a.mp4", 20000);
        if (frame == 70) std::filesystem::remove(showing.folder / "b.mp4");
        showing.turnTo(static_cast<double>(frame) / rate);
        ASSERT_TRUE(showing.recorder->number(frame)) << frame;
    }
    samples::writeNumbered(showing.folder / "a.mp4", 30, rate); // replaced by a shorter one
    showing.load(1.5);
    EXPECT_EQ(showing.shown(45), 29);
    showing.player.stand(2.5); // in the file that is gone
    EXPECT_EQ(showing.shown(75), -1);
}

TEST(PicturePlayer, manyOrdersAtOnceEndOnTheLast) {
    Showing showing({{0, 0, 3}, {1, 0, 2}, {0, 1, 4}});
    for (int turn = 0; turn < 60; ++turn) {
        const double at = std::fmod(turn * 1.37, 7.9);
        if (turn % 7 == 3) showing.player.run(turn % 2 == 0 ? 2 : -1);
        if (turn % 5 == 1) showing.player.skim(at);
        if (turn % 11 == 4) showing.load(at);
        if (turn % 13 == 6) showing.player.setSink(turn % 2 == 0 ? nullptr : showing.recorder, side, side);
        showing.player.seek(at);
    }
    showing.player.setSink(showing.recorder, side, side);
    showing.player.stand(4.2);
    const auto frame =
        showing.recorder->next([](const auto& each) { return each.exact && each.time == 4.2; });
    ASSERT_TRUE(frame);
    EXPECT_TRUE(same(frame->picture, showing.still(4.2)));
}

}
