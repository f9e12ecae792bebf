#include "app/desktop/transcript/OrderedTranscript.h"
#include "app/desktop/transcript/TranscriptRows.h"
#include "tests/desktop/SpokenVideo.h"

#include <functional>

using namespace murbo;

TEST(OrderedTranscript, hasLinesByTheirStartAndTheLongestOfThem) {
    Project project = TimelineVideo::made();
    const auto source = project.sources[0].id;
    auto& said = project.transcripts[source];
    said.lines = std::vector<Line>{SpokenVideo::line(30, 31, "later"), SpokenVideo::line(10, 14, "earlier")};
    said.notes = std::vector<Note>{{.start = 12, .end = 13, .text = "falls"}};
    const OrderedTranscript spoken(source, said, project.clips);
    ASSERT_EQ(spoken.lines().size(), 2);
    EXPECT_EQ(spoken.lines()[0]->text, "earlier");
    EXPECT_EQ(spoken.reach(), 4);
    EXPECT_EQ(spoken.tags().at(said.lines[0].id), "C01.02");
    EXPECT_EQ(spoken.tags().at(said.notes[0].id), "C01.n1");
    EXPECT_TRUE(OrderedTranscript(UUID::make(), said, project.clips).tags().empty())
        << "clips of another source";
}

TEST(OrderedTranscript, keptOnesGiveWhatFreshOnesWouldAfterEveryKindOfChange) {
    SpokenVideo shown;
    OrderedTranscripts kept;
    const std::function<void(Project&)> changes[] = {
        [](Project&) {},
        [&](Project& project) { project.transcripts[shown.source].lines.edit()[0].text = "another"; },
        [&](Project& project) { project.transcripts[shown.source].lines.edit()[1].start = 10.5; },
        [&](Project& project) { project.transcripts[shown.source].notes.edit().clear(); },
        [](Project& project) { project.clips.edit()[0].number = 7; },
        [](Project& project) { project.clips.edit()[0].start = 20; },
        [](Project& project) { project.videos.edit()[0].cuts.edit().pop_back(); },
        [&](Project& project) { project.transcripts.erase(shown.source); }};
    for (const auto& change : changes) {
        shown.editor.apply(change);
        for (const TranscriptRows::SpokenSubject& subject :
             {TranscriptRows::SpokenSubject{shown.clip, {}, {}},
              {{}, shown.source, {}},
              {{}, {}, shown.editor.openVideo()}}) {
            const auto basis =
                TranscriptRows::Basis::of(shown.editor.project(), subject, shown.editor.openVideo(), 2);
            OrderedTranscripts fresh;
            const auto rows = TranscriptRows::of(basis, kept);
            const auto expected = TranscriptRows::of(basis, fresh);
            ASSERT_EQ(rows.size(), expected.size());
            for (std::size_t at = 0; at < rows.size(); ++at) {
                EXPECT_TRUE(rows[at].isSameAs(expected[at]));
                EXPECT_EQ(rows[at].tag, expected[at].tag);
                EXPECT_EQ(rows[at].text, expected[at].text);
                EXPECT_EQ(rows[at].from, expected[at].from);
            }
        }
    }
    TranscriptRows::of(TranscriptRows::Basis::of(shown.editor.project(), {}, {}, 2), kept);
    EXPECT_TRUE(kept.empty()) << "those that are gone are not kept";
}
