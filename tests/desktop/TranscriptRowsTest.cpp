#include "app/desktop/transcript/TranscriptRows.h"
#include "tests/desktop/SpokenVideo.h"

using namespace murbo;

using TranscriptRowsTest = OnVideo<SpokenVideo>;

namespace {

std::vector<TranscriptRow> rowsOf(const SpokenVideo& shown, const TranscriptRows::SpokenSubject& subject) {
    OrderedTranscripts spoken;
    return TranscriptRows::of(
        TranscriptRows::Basis::of(shown.editor.project(), subject, shown.editor.openVideo(), 2), spoken);
}

/// "tag text" of each row, an asterisk where the video plays it, the silence before it in seconds.
std::vector<std::string> words(const std::vector<TranscriptRow>& rows) {
    std::vector<std::string> list;
    for (const auto& row : rows) {
        auto text = row.tag.toStdString() + " " + row.text.toStdString();
        if (row.used) text += " *";
        if (row.quiet > 0) text += " " + std::to_string(static_cast<int>(row.quiet));
        list.push_back(text);
    }
    return list;
}

}

TEST_F(TranscriptRowsTest, ofAClipHaveItsTagsNotesAndSilencesAndNoLineThatIsGone) {
    const auto rows = rowsOf(video, {video.clip, {}, {}});
    EXPECT_EQ(words(rows), (std::vector<std::string>{"01 first line of all *", "02 ไม่เป็นไร เดินช้า ๆ *",
                                                     "03 二行目の言葉です * 16", "n1 falls down",
                                                     "05 no no 🙂 the floor * 19"}));
    EXPECT_TRUE(rows[3].note);
    EXPECT_EQ(rows[1].from, 13.5);
}

TEST_F(TranscriptRowsTest, ofASourceNameTheClipToo) {
    const auto rows = rowsOf(video, {{}, video.source, {}});
    ASSERT_EQ(rows.size(), 5);
    EXPECT_EQ(rows[0].tag, QString("C01.01"));
}

TEST_F(TranscriptRowsTest, ofAVideoFollowItsCutsOnItsOwnClock) {
    video.editor.apply([](Project& project) {
        auto& cuts = project.videos.edit()[0].cuts.edit();
        std::swap(cuts[0], cuts[2]); // 50–55, 30–33, 10–14
        cuts.push_back(cuts[1]);
        cuts.back().id = UUID::make();
    });
    const auto rows = rowsOf(video, {{}, {}, video.editor.openVideo()});
    ASSERT_EQ(rows.size(), 5);
    EXPECT_EQ(rows[0].from, 1);
    EXPECT_EQ(rows[1].from, 6);
    EXPECT_EQ(rows[2].from, 9);
    EXPECT_EQ(rows[3].to, 12) << "as far as the cut goes";
    EXPECT_EQ(rows[4].id, rows[1].id);
    EXPECT_FALSE(rows[4].isSameAs(rows[1])) << "a line played twice is two rows";
}

TEST_F(TranscriptRowsTest, ofNothingAreNone) {
    EXPECT_TRUE(rowsOf(video, {}).empty());
    EXPECT_TRUE(rowsOf(video, {UUID::make(), {}, {}}).empty());
    EXPECT_TRUE(rowsOf(video, {{}, UUID::make(), {}}).empty());
}

TEST(TranscriptRows, aHostileTextIsOneBlock) {
    bool whole = false;
    EXPECT_EQ(TranscriptRows::shown("a\nb\r\nc\x01"
                                    "d\xE2\x80\xA9"
                                    "e\xE2\x80\xA8"
                                    "f",
                                    whole),
              "a b  c d e f");
    EXPECT_TRUE(whole);
    const auto framed = TranscriptRows::shown("x\xEF\xB7\x90y\xEF\xB7\x91z\xEF\xBF\xBC", whole);
    EXPECT_EQ(framed.size(), 6);
    EXPECT_FALSE(framed.contains(QChar(0xfdd0)) || framed.contains(QChar(0xfffc)));
    EXPECT_EQ(TranscriptRows::shown(std::string("a\0b", 3), whole), "a b");
    EXPECT_EQ(TranscriptRows::shown("\xff\xfe broken", whole).size(), 9);
    const auto cut = TranscriptRows::shown(std::string(1000000, 'x'), whole);
    EXPECT_FALSE(whole) << "what is not video whole is not corrected";
    EXPECT_LT(cut.size(), 5000);
}
