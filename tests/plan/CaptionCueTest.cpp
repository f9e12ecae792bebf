#include "core/render/plan/CaptionCue.h"
#include "core/render/plan/FrameTime.h"
#include "tests/plan/Made.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

using namespace murbo;
using Made::line;
using Made::Spoken;

namespace {

/// Cues as text: start, end, what they say; then their piece and marks for by hand, big, hidden, moved.
std::string text(const std::vector<CaptionCue>& cues) {
    std::string result;
    for (const CaptionCue& cue : cues) {
        result +=
            fmt::format("{}{:.4g}-{:.4g} {}", result.empty() ? "" : " | ", cue.start, cue.end, cue.text);
        if (cue.piece) result += fmt::format(" #{}", *cue.piece);
        if (cue.byHand) result += " hand";
        if (cue.big) result += " big";
        if (cue.hidden) result += " hidden";
        if (cue.move) result += " moved";
        for (const auto word : cue.stress) result += fmt::format(" *{}", word);
    }
    return result;
}

std::string cues(const Spoken& spoken) {
    return text(CaptionCue::cues(spoken.video, spoken.project));
}

/// The pieces of a line "one two three" from 10 to 20 that was changed by hand.
std::string pieces(const CaptionLine& line, std::int64_t max = 24) {
    return text(CaptionCue::pieces({.start = 10, .end = 20, .text = "one two three"}, &line, max));
}

CaptionLine broken(std::vector<CaptionLine::Piece> pieces) {
    return {.pieces = std::move(pieces)};
}

}

TEST(CaptionCue, showsTheLinesThatItsCutsShow) {
    const auto lines =
        std::vector{line(10, 12, "first"), line(12, 13, "[laughs]"), line(13, 16, " [sighs] last ")};
    EXPECT_EQ(cues(Spoken(lines, {{10, 16}})), "0-2 first | 3-6 last");
    EXPECT_EQ(cues(Spoken(lines, {{14, 15}, {11, 14}})), "0-1 last | 1-2 first | 3-4 last")
        << "cut on both sides";
    EXPECT_EQ(cues(Spoken(lines, {{11.95, 13.05}})), "") << "no more than 0.05 s of either";
    EXPECT_EQ(cues(Spoken(lines, {{11.94, 13.06}})), "0-0.06 first | 1.06-1.12 last");
    EXPECT_EQ(cues(Spoken(lines, {{0, 5}})), "");
    EXPECT_EQ(cues(Spoken({line(14, 15, "later"), line(13, 14, "late"), line(10, 12, "first")}, {{10, 12}})),
              "0-2 first")
        << "stored out of order";
    Spoken without(lines, {{10, 16}});
    without.project.transcripts.clear();
    EXPECT_EQ(cues(without), "");
    Spoken gone(lines, {{10, 16}});
    gone.project.transcripts[gone.source].lines.edit()[0].gone = true;
    EXPECT_EQ(cues(gone), "3-6 last");
}

TEST(CaptionCue, keepsTheStoredOrderOfLinesThatStandInNone) {
    const auto lines =
        std::vector{line(14, 16, "b"), line(10, 20, "long"), line(11, 12, "a"), line(30, 31, "far")};
    EXPECT_EQ(cues(Spoken(lines, {{10, 20}})), "4-6 b | 0-10 long | 1-2 a");
    EXPECT_EQ(cues(Spoken(lines, {{17, 19}})), "0-2 long") << "found behind shorter lines";
}

TEST(CaptionCue, followsTheTimesGivenByHand) {
    Spoken spoken({line(10, 12, "first"), line(50, 52, "far")}, {{10, 16}});
    auto& lines = spoken.video.look.emplace().captions.lines;
    lines.edit() = {{.line = spoken.line(0).id, .start = 8, .end = 11},
                    {.line = spoken.line(0).id, .hidden = true},
                    {.line = spoken.line(1).id, .big = true, .start = 14, .end = 15}};
    EXPECT_EQ(cues(spoken), "0-1 first | 4-5 far big") << "the first entry of a line counts";
}

TEST(CaptionCue, breaksLongLinesSoThatReadingTimeIsEven) {
    Spoken spoken({line(0, 10, "aaaa bbbb cccc dddd")}, {{0, 10}});
    spoken.project.captionStyle = CaptionStyle{.most = 10};
    EXPECT_EQ(cues(spoken), "0-5 aaaa bbbb #0 | 5-10 cccc dddd #1");
    spoken.video.look.emplace().captions.lines.edit() = {
        {.line = spoken.line(0).id, .big = true, .stress = std::vector<std::int64_t>{1}, .move = Move{}}};
    EXPECT_EQ(cues(spoken), "0-5 aaaa bbbb #0 big moved | 5-10 cccc dddd #1 big moved")
        << "what is stressed in the line means nothing in its pieces";
    spoken.project.captionStyle->most = 30;
    EXPECT_EQ(cues(spoken), "0-10 aaaa bbbb cccc dddd big moved *1");
}

TEST(CaptionCue, breaksByHandHoldWhileTheyFitTheText) {
    EXPECT_EQ(pieces(broken({{.text = "one "}, {.text = "two three"}}), 99),
              "10-13.08 one  #0 hand | 13.08-20 two three #1 hand");
    EXPECT_EQ(pieces(broken({{.text = "onetwo", .until = 0.2}, {.text = "three", .until = 0.1}})),
              "10-12 onetwo #0 hand | 12-20 three #1 hand")
        << "blanks don't count, nor where the last piece ends";
    EXPECT_EQ(pieces(broken({{.text = "one"}, {.text = "three"}})), "10-20 one two three") << "stale";
    EXPECT_EQ(pieces(broken({})), "10-20 one two three");
    EXPECT_EQ(pieces(broken({{.text = "one two three", .stress = std::vector<std::int64_t>{2}}})),
              "10-20 one two three hand *2");
    CaptionLine mixed = broken({{.text = "one two", .hidden = true, .move = Move{}},
                                {.text = "three", .big = true, .stress = std::vector<std::int64_t>{0}}});
    mixed.stress = std::vector<std::int64_t>{1};
    EXPECT_EQ(pieces(mixed), "10-15.83 one two #0 hand hidden moved | 15.83-20 three #1 hand big *0");
}

TEST(CaptionCue, sharesByHandCountOnlyAllTogether) {
    using Shares = std::pair<std::optional<double>, std::optional<double>>;
    const std::string byLength = "10-12.73 one #0 hand | 12.73-15.45 two #1 hand | 15.45-20 three #2 hand";
    for (const Shares& shares : {Shares{0.5, 0.4}, Shares{0, 0.4}, Shares{0.4, 1}, Shares{0.4, std::nullopt},
                                 Shares{std::nullopt, 0.4}, Shares{NAN, 0.4}})
        EXPECT_EQ(pieces(broken({{.text = "one", .until = shares.first},
                                 {.text = "two", .until = shares.second},
                                 {.text = "three"}})),
                  byLength);
    EXPECT_EQ(
        pieces(broken({{.text = "one", .until = 0.4}, {.text = "two", .until = 0.5}, {.text = "three"}})),
        "10-14 one #0 hand | 14-15 two #1 hand | 15-20 three #2 hand");
}

TEST(CaptionCue, standsCompleteBetweenItsEntranceAndItsExit) {
    const std::vector<CaptionCue> cues{{.start = 4, .end = 4.2}, {.start = 0, .end = 2}};
    EXPECT_FALSE(CaptionCue::shown(1, {}));
    EXPECT_NEAR(*CaptionCue::shown(1, cues), 1.84, 1e-9);
    EXPECT_NEAR(*CaptionCue::shown(2, cues), 4.1, 1e-9);
    EXPECT_NEAR(*CaptionCue::shown(99, cues), 4.1, 1e-9);
}

TEST(CaptionCue, isOnFromTheFirstFrameOfItsCutToTheLast) {
    // A line over each cut; cuts in whole frames as people write them.
    std::vector<std::pair<double, double>> cuts;
    for (int each = 0; each < 200; ++each) {
        const int first = each * 37 % 900;
        cuts.emplace_back(std::round(first / 0.03) / 1000, std::round((first + 5 + each % 9) / 0.03) / 1000);
    }
    const Spoken spoken({line(0, 100, "said")}, cuts);
    const auto cues = CaptionCue::cues(spoken.video, spoken.project);
    ASSERT_EQ(cues.size(), cuts.size());
    std::int64_t frame = 0;
    for (std::size_t each = 0; each < cuts.size(); ++each) {
        EXPECT_EQ(FrameTime::first(cues[each].start, 30), frame) << each;
        frame += 5 + std::int64_t(each) % 9;
        EXPECT_EQ(FrameTime::first(cues[each].end, 30), frame) << each;
    }
}

TEST(CaptionCue, isNoneInACutThatEndsBeforeItStarts) {
    EXPECT_EQ(cues(Spoken({line(19, 31, "said")}, {{2, 12}, {29, 20}, {28, 30}})), "10-12 said");
}

TEST(CaptionCue, piecesOfALongLineHoldTheirOwnTextAlone) {
    std::string text;
    for (int word = 0; word < 4000; ++word) text += "word ";
    const auto pieces = CaptionCue::pieces({.start = 0, .end = 60, .text = text}, nullptr, 24);
    ASSERT_GT(pieces.size(), 500u);
    std::size_t held = 0;
    for (const auto& piece : pieces) held += piece.text.capacity();
    EXPECT_LT(held, 4 * text.size());
}
