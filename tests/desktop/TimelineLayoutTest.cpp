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
