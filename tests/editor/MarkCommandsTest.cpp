#include "app/editor/commands/MarkCommands.h"
#include "tests/editor/TwoCuts.h"

using namespace murbo;

namespace {

const std::string nothingHeld = "Look through a source in the source viewer first";

}

TEST(MarkCommands, wantASourceHeld) {
    Lines lines;
    lines(R"(["set","heldClip","C01"])");
    const auto before = lines.project();
    for (const auto* command : {"dropClipMark", "dropBookmark"}) {
        EXPECT_FALSE(lines.possible(command));
        EXPECT_EQ(lines("[\"" + std::string(command) + "\"]"), did(nothingHeld));
    }
    EXPECT_EQ(lines(R"(["addNote","x"])"), did(nothingHeld));
    EXPECT_EQ(lines.project(), before);
    lines(R"(["set","heldSource","rec.mp4"])");
    EXPECT_TRUE(lines.possible("dropBookmark"));
    EXPECT_FALSE(lines.possible("addNote")) << "nothing is marked";
    EXPECT_EQ(lines(R"(["addNote","x"])"), fine);
    EXPECT_EQ(lines.project(), before);
}

TEST(MarkCommands, aClipMarkHoldsItsClipAndStays) {
    Lines lines;
    lines(R"(["set","heldSource","cam.mp4"])", R"(["source.seek",12])");
    EXPECT_EQ(lines(R"(["dropClipMark"])"), did("Marked C04", "Add Clip Mark"));
    const auto& clip = lines.project().clips[3];
    EXPECT_EQ(clip.source, lines.project().sources[1].id);
    EXPECT_EQ(clip.marks, std::vector{12.0});
    EXPECT_EQ(lines.editor().heldClip(), clip.id);
    EXPECT_EQ(lines.editor().source.time(), 12);
    EXPECT_EQ(lines.editor().source.span(), (Stretch{clip.start, clip.end}));
}

TEST(MarkCommands, aBookmarkIsAMomentOrTheMarkedRange) {
    Lines lines;
    lines(R"(["set","heldSource","cam.mp4"])", R"(["source.seek",12])");
    EXPECT_EQ(lines(R"(["dropBookmark"])"), stepped("Add Bookmark"));
    lines(R"(["set","range",[3,5]])", R"(["dropBookmark"])");
    const auto bookmarks = lines.project().bookmarks;
    ASSERT_EQ(bookmarks.size(), 2u);
    const auto cam = lines.project().sources[1].id;
    EXPECT_EQ(bookmarks[0], (Bookmark{.id = bookmarks[0].id, .number = 1, .source = cam, .at = 12}));
    EXPECT_EQ(bookmarks[1], (Bookmark{.id = bookmarks[1].id, .number = 2, .source = cam, .at = 3, .end = 5}));
    EXPECT_EQ(lines(R"(["removeBookmark","B1"])"), stepped("Remove Bookmark"));
    ASSERT_EQ(lines.project().bookmarks.size(), 1u);
    EXPECT_EQ(lines.project().bookmarks[0].tag(), "B2");
}

TEST(MarkCommands, notesStandInTheOrderOfTheirTimes) {
    Lines lines;
    lines(R"(["set","heldSource","cam.mp4"])");
    for (const auto& [range, text] :
         {std::pair{"[5,6]", "b"}, {"[1,9]", "a"}, {"[7,8]", "d"}, {"[5,7]", "c"}}) {
        lines(std::string(R"(["set","range",)") + range + "]");
        EXPECT_EQ(lines(std::string(R"(["addNote",")") + text + "\"]"), stepped("Add Note"));
    }
    std::string order;
    const auto& notes = lines.project().transcript(lines.project().sources[1].id).notes;
    for (const auto& note : notes) order += note.text;
    EXPECT_EQ(order, "abcd");
    EXPECT_EQ(notes[0].end, 9);
}
