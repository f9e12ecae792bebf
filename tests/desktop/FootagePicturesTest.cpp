#include "app/desktop/drawn/FootagePictures.h"
#include "core/intake/samples/Loudness.h"
#include "core/model/Source.h"
#include "core/render/footage/Filmstrip.h"
#include "tests/MadeMedia.h"
#include "tests/TemporaryFolder.h"

#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

using namespace murbo;

namespace {

std::filesystem::path picture() {
    return made::file("wide map.png", "-f lavfi -i color=c=red:size=640x320 -frames:v 1");
}

std::filesystem::path movie() {
    return made::file("plain.mp4",
                      "-f lavfi -i color=c=teal:size=320x180:rate=30:duration=3 -pix_fmt yuv420p");
}

/// Asks until it is there, and no longer than anything is being made.
template <class Ask>
auto awaited(FootagePictures& pictures, const Ask& ask) {
    ask();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !pictures.isBusy(); }, 10000));
    QCoreApplication::processEvents();
    return ask();
}

}

TEST(FootagePictures, areOfTheSourceTheSecondAndTheFile) {
    MURBO_NEEDS_FFMPEG();
    Filmstrip whole({.path = movie().string(), .length = 3}), broken({.path = "/no/such.mp4", .length = 3});
    const auto there = UUID::make(), gone = UUID::make();
    FootagePictures pictures(
        [&](const UUID& source) { return source == there  ? &whole
                                         : source == gone ? &broken
                                                          : nullptr; },
        [](const UUID&) { return nullptr; });
    const QSignalSpy changed(&pictures, &FootagePictures::changed);
    EXPECT_FALSE(pictures.still(there, 2)) << "it is made aside";
    EXPECT_TRUE(pictures.isBusy());
    const auto still = awaited(pictures, [&] { return pictures.still(there, 2); });
    ASSERT_TRUE(still);
    EXPECT_EQ(std::pair(still->width(), still->height()), std::pair(320, 180));
    EXPECT_EQ(changed.count(), 1) << "made once, however often it was asked for";
    EXPECT_FALSE(awaited(pictures, [&] { return pictures.still(gone, 0); }));
    EXPECT_FALSE(pictures.isBusy()) << "what can't be made is not tried again";
    EXPECT_FALSE(pictures.still(UUID::make(), 0));
    EXPECT_FALSE(pictures.isBusy());

    const auto read = awaited(pictures, [&] { return pictures.ofFile(picture()); });
    ASSERT_TRUE(read) << "a picture, made small";
    EXPECT_EQ(std::pair(read->width(), read->height()), std::pair(320, 160));
    EXPECT_GT(read->row(80)[160 * 4 + 2], 200);
    const auto first = awaited(pictures, [&] { return pictures.ofFile(movie()); });
    ASSERT_TRUE(first) << "of a movie its first frame";
    EXPECT_LT(first->row(80)[160 * 4 + 2], 60);
    for (const auto& bad : {std::filesystem::path("/no/such.png"), std::filesystem::temp_directory_path()})
        EXPECT_FALSE(awaited(pictures, [&] { return pictures.ofFile(bad); })) << bad;
}

TEST(FootagePictures, listenToSourcesAndFiles) {
    MURBO_NEEDS_FFMPEG();
    const Loudness loud{{200, 100}};
    const Loudness* known = nullptr;
    FootagePictures pictures([](const UUID&) { return nullptr; }, [&](const UUID&) { return known; });
    EXPECT_FALSE(pictures.loudness(UUID::make()));
    EXPECT_TRUE(pictures.isBusy()) << "somebody else is still listening";
    known = &loud;
    EXPECT_FALSE(pictures.isBusy());
    EXPECT_EQ(pictures.loudness(UUID::make()), &loud);
    const auto boom = made::file("boom.wav", "-f lavfi -i sine=frequency=80:duration=0.4");
    const auto* heard = awaited(pictures, [&] { return pictures.loudnessOf(boom); });
    ASSERT_TRUE(heard);
    EXPECT_EQ(heard->levels.size(), 4U);
    EXPECT_GT(heard->levels[1], 100);
    const auto* silence = awaited(pictures, [&] { return pictures.loudnessOf("/no/such.wav"); });
    ASSERT_TRUE(silence) << "known to be nothing";
    EXPECT_TRUE(silence->levels.empty());
}
