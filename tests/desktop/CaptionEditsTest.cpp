#include "app/desktop/captions/CaptionEdits.h"
#include "core/render/plan/CaptionCue.h"
#include "tests/desktop/SpokenVideo.h"

using namespace murbo;

namespace {

struct Edited : SpokenVideo {
    /// The captions of a line, "|" between them; big ones in capitals of a sort, hidden ones in brackets.
    std::string shown(std::size_t line) const {
        std::string text;
        for (const auto& cue : CaptionCue::cues(*editor.video(), editor.project())) {
            if (cue.line != said(line).id) continue;
            if (!text.empty()) text += "|";
            text += cue.hidden ? "(" + cue.text + ")" : cue.big ? "*" + cue.text : cue.text;
        }
        return text;
    }
    Pick pick(std::size_t line, std::optional<std::int64_t> piece = {}) const {
        return {Pick::Kind::caption, said(line).id, piece};
    }
};

using CaptionEditsTest = OnVideo<Edited>;

}

TEST_F(CaptionEditsTest, breakAndJoinBeforeAWord) {
    CaptionEdits::toggleBreak(video.editor, video.said(0).id, 2);
    EXPECT_EQ(video.shown(0), "first line|of all");
    EXPECT_EQ(video.step(), "Break Caption");
    CaptionEdits::toggleBreak(video.editor, video.said(0).id, 1);
    EXPECT_EQ(video.shown(0), "first|line|of all");
    CaptionEdits::toggleBreak(video.editor, video.said(0).id, 2);
    EXPECT_EQ(video.shown(0), "first|line of all");
    CaptionEdits::toggleBreak(video.editor, video.said(0).id, 1);
    EXPECT_EQ(video.shown(0), "first line of all");
    EXPECT_EQ(video.step(), "Join Caption");
    CaptionEdits::toggleBreak(video.editor, video.said(0).id, 0);
    CaptionEdits::toggleBreak(video.editor, video.said(0).id, 99);
    EXPECT_EQ(video.steps(), 4) << "there is no place to break";
}

TEST_F(CaptionEditsTest, wordsWithoutBlanksBetweenThemAreJoinedWithoutAny) {
    const auto whole = video.shown(2);
    CaptionEdits::toggleBreak(video.editor, video.said(2).id, 1);
    EXPECT_NE(video.shown(2), whole);
    CaptionEdits::toggleBreak(video.editor, video.said(2).id, 1);
    EXPECT_EQ(video.shown(2), whole);
}

TEST_F(CaptionEditsTest, onePieceIsBigOrHiddenWithoutTheOthers) {
    CaptionEdits::toggleBig(video.editor, video.pick(0));
    EXPECT_EQ(video.shown(0), "*first line of all");
    CaptionEdits::breakAt(video.editor, video.pick(0), 10);
    EXPECT_EQ(video.shown(0), "*first line|*of all");
    CaptionEdits::toggleBig(video.editor, video.pick(0, 1));
    EXPECT_EQ(video.shown(0), "*first line|of all");
    CaptionEdits::toggleHidden(video.editor, video.pick(0, 0));
    EXPECT_EQ(video.shown(0), "(first line)|of all");
    CaptionEdits::toggleHidden(video.editor, video.pick(0, 0));
    EXPECT_EQ(video.shown(0), "*first line|of all");
    EXPECT_EQ(video.step(), "Show Caption");
    CaptionEdits::toggleHidden(video.editor, video.pick(0, 7));
    EXPECT_EQ(video.step(), "Show Caption") << "there is no such piece";
}

TEST_F(CaptionEditsTest, aLineTooLongForItsStyleIsBrokenByHandOnlyWhenOneOfItsPiecesIsChanged) {
    video.editor.change("Style", [](Project& project) { project.captionStyle.emplace().most = 10; });
    ASSERT_EQ(video.shown(0), "first|line of all");
    EXPECT_FALSE(CaptionEdits::whole(video.editor, video.said(0).id)->byHand());
    CaptionEdits::toggleBig(video.editor, video.pick(0, 1));
    EXPECT_EQ(video.shown(0), "first|*line of all");
    EXPECT_TRUE(CaptionEdits::whole(video.editor, video.said(0).id)->byHand());
    video.editor.setPicked(video.pick(0, 1));
    CaptionEdits::perform(video.editor, "join");
    EXPECT_EQ(video.shown(0), "first|line of all");
    EXPECT_FALSE(CaptionEdits::possible(video.editor, "join"));
}

TEST_F(CaptionEditsTest, wordsStandOutByLineAndByPiece) {
    const auto line = video.said(0).id;
    CaptionEdits::toggleStress(video.editor, line, 3);
    EXPECT_TRUE(CaptionEdits::words(video.editor, line)[3].stressed);
    CaptionEdits::toggleStress(video.editor, line, 3);
    EXPECT_FALSE(video.editor.video()->look->captions.line(line)->stress);
    CaptionEdits::toggleBreak(video.editor, line, 2);
    CaptionEdits::toggleStress(video.editor, line, 3);
    const auto& pieces = *video.editor.video()->look->captions.line(line)->pieces;
    EXPECT_EQ(pieces[1].stress, (std::vector<std::int64_t>{1})) << "of the piece's own words";
}

TEST_F(CaptionEditsTest, correctingAPieceCorrectsTheLineAndKeepsTheBreaks) {
    CaptionEdits::toggleBreak(video.editor, video.said(0).id, 2);
    const auto steps = video.steps();
    CaptionEdits::retext(video.editor, video.pick(0, 1), "of them all");
    EXPECT_EQ(video.said(0).text, "first line of them all");
    EXPECT_EQ(video.shown(0), "first line|of them all");
    EXPECT_EQ(video.step(), "Correct Line");
    EXPECT_EQ(video.steps(), steps + 1);
    CaptionEdits::retext(video.editor, video.pick(1), "ไม่เป็นไร");
    EXPECT_EQ(video.said(1).text, "ไม่เป็นไร");
    CaptionEdits::retext(video.editor, video.pick(1), "  ");
    EXPECT_EQ(video.said(1).text, "ไม่เป็นไร") << "a caption is hidden, not emptied";
}

TEST_F(CaptionEditsTest, tagsInALineStayWhenAPieceIsCorrected) {
    video.editor.apply([&](Project& project) {
        project.transcripts[video.source].lines.edit()[0].text = "[laughs] first line [pause] of all";
    });
    EXPECT_EQ(CaptionEdits::text(video.editor, video.pick(0)), "[laughs] first line [pause] of all");
    CaptionEdits::toggleBreak(video.editor, video.said(0).id, 2);
    CaptionEdits::retext(video.editor, video.pick(0, 0), "second line");
    EXPECT_EQ(video.said(0).text, "[laughs] second line [pause] of all");
}

TEST_F(CaptionEditsTest, whatIsPickedSaysWhatCanBeDone) {
    EXPECT_FALSE(CaptionEdits::possible(video.editor, "big"));
    video.editor.setPicked(video.pick(0));
    EXPECT_TRUE(CaptionEdits::possible(video.editor, "big"));
    EXPECT_FALSE(CaptionEdits::possible(video.editor, "resetTiming"));
    video.editor.setPicked(Pick{Pick::Kind::caption, UUID::make(), {}});
    for (const auto* action : {"big", "hide", "join", "resetTiming"}) {
        EXPECT_FALSE(CaptionEdits::possible(video.editor, action));
        CaptionEdits::perform(video.editor, action);
    }
    EXPECT_TRUE(video.editor.history().past().empty());
}
