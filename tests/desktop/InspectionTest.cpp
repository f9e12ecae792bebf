#include "app/desktop/inspector/Inspection.h"
#include "tests/desktop/InspectedVideo.h"

#include <QTest>

using namespace murbo;

using InspectionTest = OnVideo<InspectedVideo>;

TEST_F(InspectionTest, showsTheOpenVideoWhereNothingIsPicked) {
    EXPECT_EQ(video.inspection.kind(), "video");
    EXPECT_EQ(video.at("title"), "Video");
    EXPECT_EQ(video.at("length"), "0:12.00 · 3 cuts");
    video.inspection.set("title", "  A better one ");
    EXPECT_EQ(video.editor.video()->title, "A better one");
    EXPECT_EQ(video.inspection.title(), "A better one");
    video.inspection.set("title", "   ");
    EXPECT_EQ(video.editor.video()->title, "A better one") << "a video has a title";
    video.inspection.set("aspect", 1);
    EXPECT_EQ(video.editor.video()->aspect, Video::Aspect::horizontal);
    video.inspection.set("aspect", 99);
    EXPECT_EQ(video.editor.video()->aspect, Video::Aspect::horizontal);
    video.inspection.set("aspect", 0); // the settings keep the last one for all tests

    video.editor.openOnTimeline(std::nullopt);
    EXPECT_EQ(video.inspection.kind(), "nothing");
    EXPECT_EQ(video.ids(), "");
    video.inspection.set("title", "Nobody");
}

TEST_F(InspectionTest, aDragIsOneStepHoweverManyPiecesItHas) {
    video.pick(Pick::Kind::shot, video.look().shots[0].id);
    const auto before = video.steps();
    for (int piece = 0; piece < 30; ++piece) video.inspection.drag("zoom", 1 + piece * 0.05);
    EXPECT_NEAR(video.look().shots[0].zoom, 2.45, 1e-9);
    EXPECT_EQ(video.steps(), before) << "not while the mouse is down";
    video.inspection.release();
    EXPECT_EQ(video.steps(), before + 1);
    EXPECT_EQ(video.step(), "Change Zoom");
    video.editor.undo();
    EXPECT_EQ(video.look().shots[0].zoom, 1);
    EXPECT_EQ(video.at("zoom").toDouble(), 1) << "the row follows what is undone";

    video.inspection.drag("zoom", 2.0);
    video.inspection.cancel();
    EXPECT_EQ(video.look().shots[0].zoom, 1) << "let go of";
    EXPECT_EQ(video.steps(), before);

    // By keys nothing says when it ends: it does by resting.
    video.inspection.drag("zoom", 3.0);
    ASSERT_TRUE(QTest::qWaitFor([&] { return video.steps() == before + 1; }, 3000));
    EXPECT_EQ(video.step(), "Change Zoom");
    video.inspection.release();
    EXPECT_EQ(video.steps(), before + 1);
}

TEST_F(InspectionTest, fillsInAPlaybooksParameters) {
    const auto overlay = [&]() -> const Overlay& { return video.look().overlays[0]; };
    video.pick(Pick::Kind::overlay, overlay().id);
    const auto before = video.steps();
    for (const auto* typed : {"H", "He", "Hey"}) video.inspection.drag("value.title", typed);
    video.inspection.release();
    EXPECT_EQ(overlay().values->at("title"), "Hey");
    EXPECT_EQ(video.steps(), before + 1) << "typing is one step";
    EXPECT_TRUE(video.changed("value.title"));
    video.inspection.reset("value.title");
    EXPECT_EQ(overlay().values, std::nullopt) << "nothing filled in is no values";
}

TEST_F(InspectionTest, whatIsGoneIsNotChanged) {
    video.pick(Pick::Kind::shot, video.look().shots[1].id);
    video.inspection.drag("zoom", 3.0);
    video.editor.apply([](Project& project) { project.videos.edit()[0].look->shots.edit().pop_back(); });
    EXPECT_EQ(video.inspection.kind(), "video") << "the pick went with it";
    const auto before = video.editor.project();
    video.inspection.set("zoom", 2.0);
    video.inspection.drag("zoom", 2.0);
    video.inspection.press("takeOutQuiet");
    video.inspection.takeRange("value.clip");
    EXPECT_EQ(video.editor.project(), before);
    video.inspection.release();
    EXPECT_EQ(video.look().shots.size(), 1);
}

TEST_F(InspectionTest, followsTheBrowser) {
    const auto& project = video.editor.project();
    video.editor.setInspecting(Inspecting::browser);
    EXPECT_EQ(video.inspection.kind(), "video") << "nothing is held there";
    video.editor.holdClip(project.clips[0].id);
    EXPECT_EQ(video.inspection.kind(), "clip");
    video.inspection.set("title", "The hop");
    EXPECT_EQ(project.clips[0].name, "The hop");
    EXPECT_EQ(video.at("title"), "The hop") << "without the tag that stands after it elsewhere";
    video.inspection.set("rating", 2);
    EXPECT_EQ(project.clips[0].rating, -1);
    video.inspection.reset("title");
    EXPECT_EQ(project.clips[0].name, std::nullopt);

    video.editor.holdClip(std::nullopt);
    video.editor.holdSource(project.sources[0].id);
    EXPECT_EQ(video.inspection.kind(), "source");
    video.inspection.set("note", "A game about a frog");
    EXPECT_EQ(project.sources[0].note, "A game about a frog");
    video.inspection.set("note", "  ");
    EXPECT_EQ(project.sources[0].note, std::nullopt);
    video.inspection.press("framing");
    EXPECT_TRUE(video.editor.framing());
    video.editor.setInspecting(Inspecting::timeline);
    EXPECT_EQ(video.inspection.kind(), "video");
}
