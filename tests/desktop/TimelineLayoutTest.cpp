#include "app/desktop/timeline/TimelineLayout.h"
#include "core/model/edits/VideoEdits.h"
#include "tests/desktop/TimelineVideo.h"

using namespace murbo;

using TimelineLayoutTest = OnVideo<TimelineVideo>;

namespace {

std::vector<TimelineBlock> on(const TimelineLayout& layout, TimelineRow row) {
    std::vector<TimelineBlock> blocks;
    for (const auto& block : layout.blocks)
        if (block.row == row) blocks.push_back(block);
    return blocks;
}

}

TEST_F(TimelineLayoutTest, cutsFollowOneAnotherUnderTheTagsOfWhatIsSaid) {
    const auto layout = video.layout();
    const auto cuts = on(layout, TimelineRow::picture);
    ASSERT_EQ(cuts.size(), 3);
    EXPECT_EQ(cuts[0].label, "C01.01");
    EXPECT_EQ(cuts[1].from, 4);
    EXPECT_EQ(cuts[2].to, 12);
    EXPECT_EQ(cuts[1].at, 30);
    EXPECT_EQ(layout.length, 12);
    const auto captions = on(layout, TimelineRow::captions);
    ASSERT_EQ(captions.size(), 3);
    EXPECT_EQ(captions[1].from, 5) << "a caption lies where its words are heard";
    EXPECT_EQ(on(layout, TimelineRow::sounds).at(0).label, "boom");
}

TEST_F(TimelineLayoutTest, rowsLieUnderOneAnotherAndOnlyThoseThatHoldSomething) {
    const auto layout = video.layout();
    double below = TimelineLayout::rulerHeight;
    for (const auto& track : layout.tracks) {
        EXPECT_GT(track.top, below);
        below = track.top + track.height;
    }
    EXPECT_FALSE(layout.track(TimelineRow::music));
    EXPECT_FALSE(layout.track(TimelineRow::overlays));
}

TEST_F(TimelineLayoutTest, whatLiesAtOneTimeHasLanesOfItsOwn) {
    video.editor.change("Sounds", [](Project& project) {
        auto& sounds = project.videos.edit()[0].look->sounds.edit();
        for (int more = 0; more < 3; ++more) {
            sounds.push_back(sounds[0]);
            sounds.back().id = UUID::make();
        }
    });
    const auto layout = video.layout();
    EXPECT_EQ(layout.track(TimelineRow::sounds)->lanes, 4);
    for (const auto& block : on(layout, TimelineRow::sounds)) {
        const auto* hit = layout.hit(block.from + 0.1, layout.top(block) + 5);
        ASSERT_TRUE(hit);
        EXPECT_EQ(hit->pick, block.pick);
    }
}

TEST_F(TimelineLayoutTest, aPressMeetsTheBlockUnderIt) {
    const auto layout = video.layout();
    const double y = layout.track(TimelineRow::picture)->top + 20;
    EXPECT_EQ(layout.hit(4.5, y)->pick.id, video.cut(1).id);
    EXPECT_EQ(layout.hit(4, y)->pick.id, video.cut(1).id) << "a cut begins at its first moment";
    EXPECT_FALSE(layout.hit(12.5, y));
    EXPECT_EQ(layout.rowAt(y), TimelineRow::picture);
    EXPECT_FALSE(layout.rowAt(3)) << "the ruler is no row";
}

TEST_F(TimelineLayoutTest, quietIsKnownOnlyWhereWordsWereWrittenDown) {
    // Of the third cut's five seconds the first is silent, and the last; neither for long.
    EXPECT_TRUE(on(video.layout(), TimelineRow::picture)[2].quiet.empty());
    video.editor.change("Longer", [](Project& project) { project.videos.edit()[0].cuts.edit()[2].end = 60; });
    const auto quiet = on(video.layout(), TimelineRow::picture)[2].quiet;
    ASSERT_EQ(quiet.size(), 1);
    EXPECT_NEAR(quiet[0].from, 7 + 4, 0.5) << "from the end of the words on, in video seconds";
    video.editor.change("Forget", [](Project& project) { project.transcripts.clear(); });
    EXPECT_TRUE(on(video.layout(), TimelineRow::picture)[2].quiet.empty());
}

TEST_F(TimelineLayoutTest, aSeamWithinALineSaysSo) {
    const auto seams = [&] {
        std::vector<std::pair<bool, bool>> found;
        for (const auto& block : on(video.layout(), TimelineRow::picture))
            found.emplace_back(block.startsInWord, block.endsInWord);
        return found;
    };
    using Seams = std::vector<std::pair<bool, bool>>;
    EXPECT_EQ(seams(), (Seams{{false, false}, {false, false}, {false, false}}));
    video.editor.change("Trim", [](Project& project) {
        project.videos.edit()[0].cuts.edit()[0].end = 12.5;
        project.videos.edit()[0].cuts.edit()[2].start = 53.95; // a hair before the line's end
    });
    EXPECT_EQ(seams(), (Seams{{false, true}, {false, false}, {false, false}}));
    video.editor.undo();
    video.editor.change("Split", [](Project& project) {
        VideoEdits::splitAt(project.videos.edit()[0], 2); // within the first line, and nothing is missed
    });
    EXPECT_EQ(seams(), (Seams(4, {false, false})));
}

TEST_F(TimelineLayoutTest, looksEachPlaybookUpOnce) {
    video.editor.change("Overlays", [](Project& project) {
        auto& edited = project.videos.edit()[0];
        auto& overlays = edited.look->overlays.edit();
        for (const std::int64_t version : {1, 1, 2, 1})
            overlays.push_back(
                {.playbook = "own", .version = version, .source = edited.cuts[0].source, .at = 11});
    });
    std::multiset<std::int64_t> asked;
    const auto book = [&](const std::string&, std::int64_t version) {
        asked.insert(version);
        return std::optional(TimelineLayout::BookFacts{"Own " + std::to_string(version)});
    };
    const Said said(video.editor.project());
    const auto& editor = video.editor;
    const auto layout =
        TimelineLayout::of({editor.project(), *editor.video(), editor.missing(), said, book, {}, 2});
    EXPECT_EQ(asked, (std::multiset<std::int64_t>{1, 2})) << "each time its file is read";
    std::multiset<std::string> labels;
    for (const auto& block : on(layout, TimelineRow::overlays)) labels.insert(block.label);
    EXPECT_EQ(labels, (std::multiset<std::string>{"Own 1", "Own 1", "Own 1", "Own 2"}));
}

TEST_F(TimelineLayoutTest, aRowThatIsOffShowsItsSoundsAsMuted) {
    const auto mute = [&](Lane lane) {
        video.editor.change("Mute", [&](Project& project) {
            auto& look = *project.videos.edit()[0].look;
            if (!look.mix) look.mix.emplace();
            look.mix->toggleMute(lane);
        });
    };
    const auto off = [&](TimelineRow row) {
        const auto block = on(video.layout(), row)[0];
        return block.muted || block.silent;
    };
    EXPECT_FALSE(off(TimelineRow::sounds) || off(TimelineRow::picture));
    mute(Lane::sounds);
    EXPECT_TRUE(off(TimelineRow::sounds));
    mute(Lane::video);
    EXPECT_TRUE(off(TimelineRow::picture));
    EXPECT_FALSE(on(video.layout(), TimelineRow::picture)[0].muted) << "its picture is seen as before";
    mute(Lane::sounds);
    EXPECT_FALSE(off(TimelineRow::sounds));
}
