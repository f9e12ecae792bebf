#include "app/desktop/timeline/TimelineLayout.h"
#include "tests/desktop/TimelineVideo.h"

using namespace murbo;

using TimelineLayoutTest = OnVideo<TimelineVideo>;

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
    for (const auto& block : layout.blocks)
        if (block.row == TimelineRow::overlays) labels.insert(block.label);
    EXPECT_EQ(labels, (std::multiset<std::string>{"Own 1", "Own 1", "Own 1", "Own 2"}));
}
