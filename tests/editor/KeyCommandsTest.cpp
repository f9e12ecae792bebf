#include "app/editor/commands/KeyCommands.h"
#include "tests/editor/TwoCuts.h"

using namespace murbo;

namespace {

/// Two cuts, clip C03 held, and the keys that the program comes with.
class Typing : public TwoCuts {
public:
    Typing() {
        Keys::standard().useStandard();
        (*this)(R"(["set","heldClip","C03"])");
    }
    ~Typing() { Keys::standard().useStandard(); }

    std::string press(const std::string& pressed) { return (*this)("[\"key\",\"" + pressed + "\"]"); }
};

}

TEST(KeyCommands, eachKeyDoesWhatItIsNamedFor) {
    Typing lines;
    auto& editor = lines.editor();
    for (const auto& [key, step] : {std::pair{"e", "Add Clip"},
                                    {"w", "Add Clip"},
                                    {"1", "Cut to Split"},
                                    {"2", "Cut to Content"},
                                    {"3", "Cut to Face"},
                                    {"z", "Punch In"},
                                    {"f", "Favourite"},
                                    {"u", "Clear Rating"}}) {
        lines.press(key);
        EXPECT_EQ(editor.history().undoName(), step) << key;
    }
    lines(R"(["set","heldSource","rec.mp4"])");
    for (const auto& [key, step] : {std::pair{"m", "Add Clip Mark"}, {"p", "Add Bookmark"}}) {
        lines.press(key);
        EXPECT_EQ(editor.history().undoName(), step) << key;
    }
    for (const auto& [key, tool] : {std::pair{"t", EditingTool::trim},
                                    {"b", EditingTool::blade},
                                    {"h", EditingTool::hand},
                                    {"a", EditingTool::select}}) {
        EXPECT_TRUE(lines.press(key).starts_with(R"({"ok":true,"value":")")) << key;
        EXPECT_EQ(editor.tool(), tool) << key;
    }
    const bool skimming = editor.skimming(), snapping = editor.snapping();
    lines.press("s");
    EXPECT_TRUE(editor.skimming() == !skimming && editor.snapping() == snapping);
    lines.press("n");
    EXPECT_TRUE(editor.skimming() == !skimming && editor.snapping() == !snapping);
    for (const auto* key : {"s", "n"}) lines.press(key);
}

TEST(KeyCommands, marksAreMadeOnTheSource) {
    Typing lines;
    lines(R"(["source.seek",65])");
    lines.press("i");
    EXPECT_EQ(lines.editor().range(), (Stretch{65, 70}));
    lines(R"(["source.seek",68])");
    lines.press("o");
    EXPECT_EQ(lines.editor().range(), (Stretch{65, 68}));
    lines.press("x");
    EXPECT_EQ(lines.editor().range(), (Stretch{60, 70}));
}

TEST(KeyCommands, theTransportIsThatOfThePlayerInFocus) {
    Typing lines;
    auto& editor = lines.editor();
    for (const auto* focus : {"video", "source"}) {
        lines(std::string(R"(["set","focus",")") + focus + "\"]");
        auto& player = focus == std::string("video") ? editor.playback : editor.source;
        auto& other = focus == std::string("video") ? editor.source : editor.playback;
        player.seek(player.span().from + 5);
        for (const auto& [key, rate] :
             {std::pair{"l", 1.0}, {"l", 2.0}, {"k", 0.0}, {"j", -1.0}, {"space", 0.0}}) {
            lines.press(key);
            EXPECT_EQ(player.rate(), rate) << focus << key;
            EXPECT_EQ(other.rate(), 0) << focus << key;
        }
    }
}

TEST(KeyCommands, deletingFollowsTheInspector) {
    Typing lines;
    lines(R"(["set","picked",["cut","cut 1"]])", R"(["set","inspecting","browser"])");
    EXPECT_EQ(lines.press("delete"), R"({"ok":true,"step":"Reject","value":"remove"})");
    EXPECT_EQ(lines.project().clips[2].rating, -1);
    lines(R"(["set","inspecting","timeline"])");
    EXPECT_EQ(lines.press("delete"), R"({"ok":true,"step":"Remove Cut","value":"remove"})");
    lines(R"(["set","picked",null])", R"(["rate",["C03"]])");
    EXPECT_EQ(lines.press("delete"), R"({"ok":true,"step":"Reject","value":"remove"})");
    lines(R"(["set","heldClip",null])", R"(["set","inspecting","browser"])");
    lines(R"(["set","picked",["cut","cut 1"]])");
    EXPECT_EQ(lines.press("delete"), R"({"ok":true,"step":"Remove Cut","value":"remove"})")
        << "no clip is there";
    EXPECT_EQ(lines.video().cuts.size(), 0u);
}

TEST(KeyCommands, bindingSaysWhoLostTheKey) {
    Typing lines;
    EXPECT_EQ(lines(R"(["bind","blade","q"])"), fine);
    EXPECT_EQ(lines(R"(["bind","blade","J"])"), gave("\"backward\""));
    EXPECT_EQ(lines(R"(["keyOf","blade"])"), gave("\"j\""));
    EXPECT_EQ(lines.press("q"), R"({"ok":true,"value":"backward"})");
    EXPECT_EQ(lines(R"(["bind","blade","ab"])"), refused("“ab” is no key that a command can have."));
    EXPECT_EQ(lines.press("ab"), fine);
    EXPECT_EQ(lines(R"(["useStandardKeys"])"), fine);
    EXPECT_EQ(lines(R"(["keyOf","blade"])"), gave("\"b\""));
}
