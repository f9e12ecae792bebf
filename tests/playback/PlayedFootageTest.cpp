#include "app/editor/playback/PlayedFootage.h"
#include "app/editor/playback/PlayerItem.h"
#include "tests/playback/NumberedMovie.h"

using namespace murbo;

namespace {

const std::stop_token none;

/// A video of cuts from two movies and a third that is gone, with a generated cut between.
class PlayedFootageTest : public testing::Test {
protected:
    PlayedFootageTest() {
        project = samples::project(
            {numbered::movie("long.mp4"), numbered::movie("other.mp4"), "/nowhere/gone.mp4"});
        video = samples::video(project, {{0, 1, 2}, {0, 2, 2.5}, {1, 0.5, 1.5}, {2, 0, 0.5}, {0, 4, 4.5}});
        video.cuts.edit().insert(video.cuts.begin() + 3, Cut::generated("none", 1, std::nullopt, 0.5));
        turn();
    }
    void turn() { turn({project.sources[2].id}); }
    void turn(const std::set<UUID>& missing) {
        const auto item = PlayerItem::video(video, project, missing, "", std::nullopt);
        composition = std::make_shared<const VideoComposition>(item.composition);
        footage.turnTo(composition);
    }
    /// What a frame must show: its number in its movie, or -1 for black.
    int expected(std::int64_t frame) const {
        const auto moment = composition->moment(frame);
        if (composition->segments[moment.segment].file.empty()) return -1;
        return static_cast<int>(std::floor(moment.at * numbered::rate + 0.01));
    }

    Project project;
    Video video;
    std::shared_ptr<const VideoComposition> composition;
    PlayedFootage footage;
};

TEST_F(PlayedFootageTest, everyFrameBackward) {
    for (auto frame = composition->frameCount() - 1; frame >= 0; --frame) {
        const auto shown = footage.backward(composition->moment(frame), -1, none, [] { return false; });
        ASSERT_EQ(numbered::in(shown.image), expected(frame)) << frame;
        EXPECT_NE(shown.exact, shown.image.has_value()) << "soft, but for black";
    }
}

TEST_F(PlayedFootageTest, threeFilesInAnyOrder) {
    project.sources.edit()[2].path = numbered::movie("third.mp4", 140);
    video = samples::video(project, {{0, 1, 1.5}, {1, 2, 2.5}, {2, 3, 3.5}, {1, 0, 0.5}, {0, 4, 4.5}});
    turn({});
    for (int step = 0; step < 60; ++step) {
        const auto moment = composition->moment(step * 29 % 75);
        const auto shown = footage.at(moment, step % 3 == 0 ? 1 : 0, none);
        ASSERT_EQ(numbered::in(shown.image), expected(step * 29 % 75)) << step;
        EXPECT_EQ(shown.source, composition->segments[moment.segment].source);
        if (step % 4 == 1) footage.readAround(moment);
        if (step % 7 == 2) footage.nearest(composition->moment(step * 31 % 75));
        if (step % 9 == 5)
            footage.backward(composition->moment(step * 23 % 75), -1, none, [] { return true; });
    }
}

TEST_F(PlayedFootageTest, backwardNoPictureOfAnotherFileOrPlaceComesIn) {
    const TemporaryFolder folder;
    samples::writeNumbered(folder / "slow.mp4", 60, 15);
    project.sources.edit()[1].path = folder / "slow.mp4";
    turn();
    const auto backward = [&](std::int64_t frame, bool late) {
        return numbered::in(
            footage.backward(composition->moment(frame), -1, none, [=] { return late; }).image);
    };
    EXPECT_EQ(numbered::in(footage.at(composition->moment(74), 0, none).image), 22);
    EXPECT_NE(backward(14, true), 22) << "the same time of another file";
    EXPECT_EQ(backward(14, false), expected(14));
    video.cuts.edit()[0] = {.source = project.sources[0].id, .start = 3, .end = 4};
    turn();
    EXPECT_EQ(backward(14, false), expected(14));
}

TEST_F(PlayedFootageTest, aPictureSaysWhoseItIs) {
    const auto source = [&](std::int64_t frame) {
        return footage.at(composition->moment(frame), 0, none).source;
    };
    EXPECT_EQ(source(10), project.sources[0].id);
    EXPECT_EQ(source(50), project.sources[1].id);
    EXPECT_FALSE(source(80)) << "generated";
    EXPECT_FALSE(source(95)) << "gone";
    const auto near = footage.nearest(composition->moment(50));
    EXPECT_EQ(near.source, project.sources[1].id);
    EXPECT_FALSE(near.exact);
    EXPECT_TRUE(near.image);
    EXPECT_FALSE(footage.nearest(composition->moment(80)).image);
}

TEST_F(PlayedFootageTest, anotherCompositionAndAReplacedFileAreTakenUp) {
    EXPECT_EQ(numbered::in(footage.at(composition->moment(0), 0, none).image), 30);
    const TemporaryFolder folder;
    const auto file = folder / "a.mp4";
    std::filesystem::copy_file(numbered::movie("short.mp4", 20), file);
    project.sources.edit()[0].path = file;
    video.cuts.edit()[0].start = 0.3;
    turn();
    EXPECT_EQ(numbered::in(footage.at(composition->moment(0), 0, none).image), 9);
    EXPECT_EQ(numbered::in(footage.at(composition->moment(28), 0, none).image), 19) << "its last stays";
    std::filesystem::copy_file(numbered::movie("long.mp4"), file,
                               std::filesystem::copy_options::overwrite_existing);
    turn();
    EXPECT_EQ(numbered::in(footage.at(composition->moment(28), 0, none).image), 37);
    // Also where another file has been shown since.
    EXPECT_EQ(footage.at(composition->moment(80), 0, none).source, project.sources[1].id);
    std::filesystem::remove(file);
    std::filesystem::copy_file(numbered::movie("short.mp4", 20), file);
    turn();
    EXPECT_EQ(numbered::in(footage.at(composition->moment(28), 0, none).image), 19);
}

}
