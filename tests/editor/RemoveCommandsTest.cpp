#include "app/editor/commands/RemoveCommands.h"
#include "app/editor/commands/TimelinePicks.h"
#include "tests/editor/TwoCuts.h"

using namespace murbo;

namespace {

/// Two cuts and two blocks of each other sort.
class Full : public TwoCuts {
public:
    Full() { dress({21, 41}); }
    std::vector<std::size_t> counts() {
        return {video().cuts.size(), look().shots.size(), look().overlays.size(), look().sounds.size(),
                look().music.size()};
    }
    std::string remove(const std::vector<Pick>& picks) {
        TimelinePicks::set(editor(), picks);
        return (*this)(R"(["removePicked"])");
    }
};

using Counts = std::vector<std::size_t>;

}

TEST(RemoveCommands, oneIsRemovedByItsNameAndNothingElse) {
    Full lines;
    using enum Pick::Kind;
    const auto kept = lines.look();
    EXPECT_EQ(lines.remove({{shot, kept.shots[0].id, {}}}), stepped("Remove Shot"));
    EXPECT_EQ(lines.counts(), (Counts{2, 1, 2, 2, 2}));
    EXPECT_EQ(lines.remove({{overlay, kept.overlays[0].id, {}}}), stepped("Remove Overlay"));
    EXPECT_EQ(lines.counts(), (Counts{2, 1, 1, 2, 2}));
    EXPECT_EQ(lines.remove({{sound, kept.sounds[0].id, {}}}), stepped("Remove Sound"));
    EXPECT_EQ(lines.counts(), (Counts{2, 1, 1, 1, 2}));
    EXPECT_EQ(lines.remove({{music, kept.music[0].id, {}}}), stepped("Remove Sound"));
    EXPECT_EQ(lines.counts(), (Counts{2, 1, 1, 1, 1}));
    EXPECT_FALSE(lines.editor().picked());
    EXPECT_EQ(lines.look().shots[0], kept.shots[1]);
    EXPECT_EQ(lines.look().music[0], kept.music[1]);
    EXPECT_EQ(lines.remove({{cut, lines.video().cuts[0].id, {}}}), stepped("Remove Cut"));
    EXPECT_EQ(lines.editor().picked(), (Pick{cut, lines.video().cuts[0].id, {}})) << "what took its place";
    EXPECT_EQ(lines.remove({}), fine);
}

TEST(RemoveCommands, aCaptionIsHiddenAlsoWhereThereIsNoLook) {
    TwoCuts lines;
    lines(R"(["set","picked",["caption","C01.02"]])");
    EXPECT_EQ(lines(R"(["removePicked"])"), stepped("Hide Caption"));
    ASSERT_EQ(lines.look().captions.lines.size(), 1u);
    EXPECT_EQ(lines.look().captions.lines[0], (CaptionLine{.line = lines.line(1).id, .hidden = true}));
    lines(R"(["breakCaption","C01.01",["Line","number 0"]])", R"(["set","picked",["caption","C01.01",1]])");
    lines(R"(["removeAllPicked"])");
    EXPECT_FALSE(lines.look().captions.lines[1].hidden);
    EXPECT_EQ(lines.look().captions.lines[1].pieces->at(1).hidden, true);
}

TEST(RemoveCommands, severalGoInOneStepWithNothingPickedAfter) {
    Full lines;
    using enum Pick::Kind;
    const auto before = lines.video();
    EXPECT_EQ(lines.remove({{cut, before.cuts[0].id, {}},
                            {music, before.look->music[1].id, {}},
                            {caption, lines.line(0).id, {}},
                            {overlay, before.look->overlays[1].id, {}}}),
              stepped("Remove 4 Items"));
    EXPECT_EQ(lines.counts(), (Counts{1, 2, 1, 2, 1}));
    EXPECT_EQ(lines.look().captions.lines.size(), 1u);
    EXPECT_TRUE(TimelinePicks::all(lines.editor()).empty());
    lines(R"(["undo"])");
    EXPECT_EQ(lines.video(), before);
}
