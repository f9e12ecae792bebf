#include "app/desktop/viewer/HeldFootage.h"
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
