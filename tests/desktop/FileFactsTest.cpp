#include "app/desktop/footage/FootageRow.h"
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

/// What the inspector says of a file, and the sheet for footage.
TEST(FileFacts, nameWhatMaySurprise) {
    MURBO_NEEDS_FFMPEG();
    const std::string picture = "-f lavfi -i testsrc=size=64x36:rate=30000/1001:duration=1 ";
    const std::string sound = "-f lavfi -i sine=duration=1 ", x264 = "-pix_fmt yuv420p -c:v libx264 ";
    const auto plain = made::file("ntsc.mp4", picture + x264);
    const std::tuple<const char*, std::string, const char*, const char*> files[] = {
        {"twice heard.mp4", picture + sound + sound + "-map 0 -map 1 -map 2 -ac 2 -c:a aac " + x264,
         "64 × 36, 29.97 fps, 2 sound tracks, stereo", "64 × 36 · 29.97 fps · 2 sound tracks"},
        {"old and bright.mp4",
         picture + sound + "-ac 6 -c:a aac -flags +ildct+ilme -color_primaries bt2020 -colorspace bt2020nc " +
             "-color_trc arib-std-b67 " + x264,
         "64 × 36, 29.97 fps, interlaced, HDR, 6 channels", "64 × 36 · 29.97 fps · interlaced · HDR"},
        {"stood up.mp4", "-i " + made::quoted(plain) + " -c copy -metadata:s:v rotate=90",
         "36 × 64, 29.97 fps, no sound", "36 × 64 · 29.97 fps · turned upright · no sound"}};
    for (const auto& [name, arguments, words, detail] : files) {
        const auto file = made::file(name, arguments);
        FileFacts facts;
        EXPECT_TRUE(QTest::qWaitFor([&] { return !facts.words(file).isEmpty(); }, 10000)) << name;
        EXPECT_EQ(facts.words(file), words);
        auto row = FootageRow::of(file);
        row.look();
        EXPECT_EQ(row.detail, detail);
    }
}
