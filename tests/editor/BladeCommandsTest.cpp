#include "app/editor/commands/BladeCommands.h"
#include "app/editor/commands/CutCommands.h"
#include "app/editor/commands/TimelinePicks.h"
#include "tests/editor/Lines.h"

using namespace murbo;

namespace {

/// A video of one cut of 10 s with a song and an overlay over all of it.
class BladedLines : public Lines {
public:
    BladedLines() {
        (*this)(R"(["set","pickedClips",["C01"]])");
        (*this)(R"(["set","heldClip","C01"])");
        (*this)(R"(["addToEnd"])");
        editor().change("Dress", [this](Project& project) {
            auto& video = project.videos.edit()[0];
            const auto source = video.cuts[0].source;
            auto& look = video.look.emplace();
            look.music.edit() = {{.file = "/nowhere/song.mp3", .source = source, .at = 20, .length = 10}};
            look.overlays.edit() = {{.playbook = "stock.label", .source = source, .at = 20, .length = 10}};
            song = look.music[0].id;
        });
        TimelinePicks::set(editor(), {});
    }
    std::string counts() {
        const auto& video = *editor().video();
        return std::to_string(video.cuts.size()) + std::to_string(video.look->overlays.size()) +
               std::to_string(video.look->music.size());
    }
    UUID song;
};

}

TEST(BladeCommands, cutsAllThatLiesThereOrWhatIsPickedOfIt) {
    BladedLines lines;
    auto& editor = lines.editor();
    BladeCommands::bladeAll(editor, 4);
    EXPECT_EQ(lines.counts(), "222");
    EXPECT_EQ(editor.history().undoName(), "Blade");
    lines(R"(["undo"])");
    EXPECT_EQ(lines.counts(), "111") << "in one step";

    TimelinePicks::set(editor, {{Pick::Kind::music, lines.song, {}}});
    BladeCommands::bladeAll(editor, 4);
    EXPECT_EQ(lines.counts(), "112");
    const auto before = editor.project();
    BladeCommands::bladeAll(editor, 0.01);
    EXPECT_EQ(editor.project(), before) << "too near to its start";
    EXPECT_NE(editor.toast(), "Too near an edit to split") << "who points at a place sees that";
    editor.playback.seek(0);
    BladeCommands::bladeAll(editor, std::nullopt);
    EXPECT_EQ(editor.toast(), "Too near an edit to split");
}
