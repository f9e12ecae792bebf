#include "app/editor/playback/PlayerItem.h"
#include "tests/playback/NumberedMovie.h"

using namespace murbo;

namespace {

Project oneSource(const std::filesystem::path& file, double length) {
    auto project = samples::project({file});
    project.sources.edit()[0].length = length;
    return project;
}

TEST(PlayerItem, footageIsShownWholeInItsOwnSize) {
    auto project = oneSource(numbered::movie("short.mp4", 20), 0.6);
    project.sources.edit()[0].framing = Framing{.content = {0.2, 0.2, 0.5, 0.5}};
    const auto item = PlayerItem::footage(project.sources[0]);
    EXPECT_EQ(item.composition.length(), 0.6);
    EXPECT_EQ(item.composition.box->plan()->frame, (Size{640, 360}));
    EXPECT_TRUE(item.composition.box->plan()->framings.empty());
    EXPECT_EQ(item.composition.box->plan()->shots.at(0).shot.layout, Shot::Layout::content) << "in one piece";
    const auto gone = oneSource("/nowhere/x.mp4", 5);
    const auto black = PlayerItem::footage(gone.sources[0]);
    EXPECT_EQ(black.composition.length(), 5);
    EXPECT_EQ(black.composition.box->plan()->frame, Plan::frameSize(Video::Aspect::horizontal));
    EXPECT_EQ(PlayerItem::footage(oneSource("/nowhere/x.mp4", -5).sources[0]).composition.length(), 0);
}

TEST(PlayerItem, onlyOtherStretchesAreAnotherPicture) {
    const auto project = oneSource(numbered::movie("short.mp4", 20), 0.6);
    auto video = samples::video(project, {{0, 0, 0.2}, {0, 0.3, 0.5}});
    const auto item = [&](const std::set<UUID>& missing = {}) {
        return PlayerItem::video(video, project, missing, "", std::nullopt);
    };
    const auto first = item();
    video.look->mix = Mix{.video = 0.5};
    video.title = "another";
    EXPECT_TRUE(first.hasPictureOf(item()));
    EXPECT_FALSE(first.hasPictureOf(item({project.sources[0].id}))) << "its file is gone";
    auto slower = item();
    slower.composition.rate = 25;
    EXPECT_FALSE(first.hasPictureOf(slower));
    for (const auto& [start, end] : {std::pair{0.4, 0.5}, {0.2, 0.4}}) {
        std::tie(video.cuts.edit()[1].start, video.cuts.edit()[1].end) = std::pair(start, end);
        EXPECT_FALSE(first.hasPictureOf(item())) << start;
    }
    video.cuts.edit()[1] = {.source = project.sources[0].id, .start = 0.3, .end = 0.6};
    EXPECT_FALSE(first.hasPictureOf(item()));
    video.cuts.edit().pop_back();
    EXPECT_FALSE(first.hasPictureOf(item()));
}

TEST(PlayerItem, soloedLanesSoundAlone) {
    const TemporaryFolder folder;
    const auto file = folder / "loud.mp4";
    samples::writeNumbered(file, 30, numbered::rate, true);
    const auto project = oneSource(file, 1);
    const auto video = samples::video(project, {{0, 0, 1}});
    const auto gain = [&](const std::set<Lane>& soloed) {
        const auto item = PlayerItem::video(video, project, {}, "", std::nullopt, soloed);
        return item.sound.empty() || item.sound[0].pieces.empty() ? 0
                                                                  : SoundMix::gain(item.sound[0].gains, 0.5);
    };
    EXPECT_GT(gain({}), 0);
    EXPECT_GT(gain({Lane::video}), 0);
    EXPECT_EQ(gain({Lane::music}), 0);
}

}
