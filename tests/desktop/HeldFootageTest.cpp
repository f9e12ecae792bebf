#include "app/desktop/viewer/HeldFootage.h"
#include "app/desktop/viewer/WaveStrip.h"
#include "app/editor/commands/CutCommands.h"
#include "tests/desktop/OnWindow.h"

using namespace murbo;

using HeldFootageTest = OnWindow<WindowOfProject>;

TEST_F(HeldFootageTest, saysWhatCanBeShown) {
    HeldFootage held(shown->editor());
    EXPECT_EQ(held.state(), "empty");
    const auto first = shown->editor().project().clips[0];
    shown->editor().holdClip(first.id);
    EXPECT_EQ(held.state(), "loading");
    EXPECT_TRUE(shown->waitFor([&] { return held.state() == "ready"; }));
    EXPECT_EQ(held.source().toStdString(), first.source.text());
    shown->editor().setMissing({first.source});
    EXPECT_EQ(held.state(), "missing");
    EXPECT_TRUE(held.path().endsWith("bars.mp4"));
    shown->editor().setMissing({});
    emit shown->editor().sourceFailed(UUID::make(), "Words.");
    EXPECT_EQ(held.state(), "ready") << "words about something else";
}

TEST_F(HeldFootageTest, theEdgeOfATrimStandsStillWhileTheSourcePlayerStays) {
    auto& editor = shown->editor();
    shown->putIn();
    ASSERT_EQ(shown->cuts(), 1);
    editor.holdClip(editor.project().clips[1].id);
    ASSERT_TRUE(shown->waitFor([&] { return editor.source.source() == editor.project().clips[1].source; }));
    const double stood = editor.source.time();
    HeldFootage held(editor);
    const auto cut = editor.video()->cuts[0].id;
    CutCommands::trim(editor, cut, true, 1);
    EXPECT_TRUE(held.showsEdge());
    EXPECT_EQ(held.edge()->at(), 1);
    EXPECT_TRUE(shown->waitFor([&] { return held.edge()->player()->isLoaded(); }));
    CutCommands::trim(editor, cut, true, 1.5);
    EXPECT_NEAR(held.edge()->player()->time(), 1.5, 1e-6);
    EXPECT_EQ(editor.source.time(), stood);
    EXPECT_EQ(editor.source.source(), editor.project().clips[1].source);
    CutCommands::endTrim(editor, cut, true, "Trim");
    EXPECT_FALSE(held.showsEdge());
}

TEST_F(HeldFootageTest, theEndsOfTheRangeAreDragged) {
    auto& editor = shown->editor();
    editor.holdClip(editor.project().clips[0].id);
    ASSERT_TRUE(shown->waitFor([&] { return editor.source.isLoaded() && editor.source.spanEnd() > 3; }));
    editor.setFocus(Viewer::source);
    editor.setRange(Stretch{1, 2});
    shown->settle();
    auto* strip = shown->item<WaveStrip>();
    ASSERT_TRUE(strip);
    const auto at = [&](double time) {
        return strip->mapToScene({time / editor.source.spanEnd() * strip->width(), strip->height() / 2})
            .toPoint();
    };
    shown->carry(at(2), at(3), 2);
    ASSERT_TRUE(editor.range());
    EXPECT_EQ(editor.range()->from, 1);
    EXPECT_NEAR(editor.range()->to, 3, 0.05);
    EXPECT_NEAR(editor.source.time(), 3, 0.05) << "the picture is that of the end";
    QTest::mouseClick(&shown->window(), Qt::LeftButton, {}, at(0.5));
    EXPECT_NEAR(editor.source.time(), 0.5, 0.05) << "elsewhere a press goes there";
    EXPECT_NEAR(editor.range()->to, 3, 0.05);
}
