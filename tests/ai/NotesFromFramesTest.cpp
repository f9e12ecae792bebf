#include "core/ai/LastRuns.h"
#include "core/ai/NotesFromFrames.h"
#include "platform/image/Jpeg.h"
#include "tests/MadeMedia.h"
#include "tests/ai/Told.h"

#include <gmock/gmock.h>

using namespace murbo;
using testing::ElementsAre, testing::HasSubstr;

TEST(NotesFromFrames, framesAreSpreadEvenly) {
    EXPECT_THAT(NotesFromFrames::times({10, 10.5}), ElementsAre(10.25));
    EXPECT_THAT(NotesFromFrames::times({10, 14}), ElementsAre(11, 13));
    EXPECT_EQ(NotesFromFrames::times({0, 7200}).size(), 6u);
    EXPECT_EQ(NotesFromFrames::times({5, 5}).size(), 1u);
}

TEST(NotesFromFrames, framesAreSmallPictures) {
    if (!made::canMake()) GTEST_SKIP() << "There is no ffmpeg here.";
    const Source source{.path =
                            made::file("wide.mp4", "-f lavfi -i testsrc2=s=1600x900:r=25:d=5 -c:v libx264")};
    const auto frames = NotesFromFrames::frames(source, {0, 4}, {});
    ASSERT_EQ(frames.size(), 2u);
    const auto picture = Jpeg::decode(frames[0]);
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->width(), 768);
    EXPECT_EQ(picture->height(), 432);
    EXPECT_NE(frames[0], frames[1]);
}

TEST(NotesFromFrames, theLinesAroundAreTold) {
    Told told;
    const Said said(told.project);
    const auto ask = NotesFromFrames::ask(told.source(), {110, 114}, {"one", "two"}, told.project, said);
    const auto& user = ask.messages[1];
    EXPECT_EQ(user.pictures.size(), 2u);
    EXPECT_THAT(user.content,
                HasSubstr("The stretch is 1:50 to 1:54 of rec.mp4. Its frames are from 1:51, 1:53."));
    EXPECT_THAT(user.content, HasSubstr("The lines around it:\nC02.01 [1:41] first\n"));
    EXPECT_THAT(user.content, Not(HasSubstr("C01.01"))) << "that is too far away";
    told.lines().push_back({.start = 40, .end = 50.5, .text = "ends within a minute"});
    told.lines().push_back({.start = 39, .end = 50, .text = "ended before"});
    told.lines().push_back({.start = 173.5, .end = 180, .text = "begins within a minute"});
    told.lines().push_back({.start = 174, .end = 180, .text = "begins after"});
    told.project.clips.edit()[0].end = 60;
    told.project.clips.edit()[1].end = 190;
    const auto wide = NotesFromFrames::ask(told.source(), {110, 114}, {}, told.project, Said(told.project))
                          .messages[1]
                          .content;
    for (const auto* words : {"ends within a minute", "begins within a minute"})
        EXPECT_THAT(wide, HasSubstr(words));
    for (const auto* words : {"ended before", "begins after"}) EXPECT_THAT(wide, Not(HasSubstr(words)));
    EXPECT_EQ(NotesFromFrames::warning(6), " 6 pictures of the footage leave this computer.");
}

TEST(NotesFromFrames, anAnswerBecomesANoteInItsPlace) {
    Told told;
    told.notes() = {{.start = 5, .end = 6, .text = "early"}, {.start = 300, .end = 301, .text = "late"}};
    told.project.clips.edit().push_back({.source = UUID::make(), .start = 0, .end = 1000});
    const auto run = LastRuns::now(Run::By::app);
    NotesFromFrames::apply("The screen goes white.", told.source(), {101, 103}, told.project, run);
    EXPECT_EQ(told.notes()[1].text, "The screen goes white.");
    EXPECT_EQ(LastRuns::of(told.project.clips[1].runs, Kit::ID::notesFromFrames), run);
    EXPECT_FALSE(told.project.clips[0].runs);
    EXPECT_FALSE(told.project.clips.back().runs) << "other footage at the same seconds";
    EXPECT_EQ(NotesFromFrames::words({{"note", " a\nb "}}), "a b");
    EXPECT_EQ(NotesFromFrames::words({{"note", " \n"}}), std::nullopt);
    EXPECT_EQ(NotesFromFrames::words({{"note", 7}}), std::nullopt);
    EXPECT_LE(NotesFromFrames::words({{"note", std::string(1'000'000, 'x')}})->size(), 1'000u);
}
