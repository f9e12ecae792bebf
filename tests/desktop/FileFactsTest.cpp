#include "app/desktop/inspector/FileFacts.h"
#include "tests/MadeMedia.h"

#include <QTest>

#include <gtest/gtest.h>

using namespace murbo;

TEST(FileFacts, areReadAsideAndSaidInWords) {
    MURBO_NEEDS_FFMPEG();
    FileFacts facts;
    const auto file = made::file("bars.mp4",
                                 "-f lavfi -i testsrc=size=320x180:rate=30:duration=4 -f lavfi -i "
                                 "sine=frequency=440:duration=4 -pix_fmt yuv420p -c:a aac -shortest");
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
