#include "app/desktop/footage/RecordingStills.h"
#include "tests/MadeMedia.h"

using namespace murbo;

TEST(RecordingStills, areOfTheFileAndTheSecond) {
    MURBO_NEEDS_FFMPEG();
    const auto file = made::file("ไฟ ดำ.mp4",
                                 "-f lavfi -i color=c=red:size=64x36:rate=10:duration=2 -f lavfi -i "
                                 "color=c=blue:size=64x36:rate=10:duration=2 -filter_complex "
                                 "concat=n=2 -pix_fmt yuv420p");
    RecordingStills stills;
    const auto id = RecordingStills::address(file).mid(QString("image://recording/").size());
    const auto first = stills.requestImage(id + "/0", nullptr, {});
    ASSERT_EQ(first.size(), QSize(64, 36));
    EXPECT_GT(first.pixelColor(32, 18).red(), 200);
    EXPECT_GT(stills.requestImage(id + "/3", nullptr, {}).pixelColor(32, 18).blue(), 200);
    for (const auto* bad : {"", "x", "L25vL3N1Y2g/1", "%%/-5"})
        EXPECT_EQ(stills.requestImage(bad, nullptr, {}).width(), 1) << bad;
}
