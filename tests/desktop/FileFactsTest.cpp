#include "app/desktop/inspector/FileFacts.h"
#include "tests/desktop/WindowOfProject.h"

using namespace murbo;

TEST(FileFacts, areReadAsideAndSaidInWords) {
    MURBO_NEEDS_FFMPEG();
    FileFacts facts;
    const auto file = WindowOfProject::bars();
    int times = 0;
    QObject::connect(&facts, &FileFacts::changed, [&] { ++times; });
    EXPECT_EQ(facts.words(file), "") << "nobody waits for it";
    ASSERT_TRUE(QTest::qWaitFor([&] { return times == 1; }, 10000));
    EXPECT_EQ(facts.words(file), "320 × 180, 30 fps, mono");
    EXPECT_NEAR(facts.of(file)->length, 4, 0.1);

    EXPECT_EQ(facts.words("/nowhere/at-all.mp4"), "");
    ASSERT_TRUE(QTest::qWaitFor([&] { return times == 2; }, 10000));
    EXPECT_EQ(facts.words("/nowhere/at-all.mp4"), "");
    QTest::qWait(50);
    EXPECT_EQ(times, 2) << "what can't be read isn't read over and over";
}
