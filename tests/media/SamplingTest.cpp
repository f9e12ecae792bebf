#include "platform/image/draw/Canvas.h"
#include "platform/media/FrameReader.h"
#include "tests/SameBitmaps.h"
#include "tests/media/Made.h"

using namespace murbo;

namespace {

std::vector<double> timesOf(const std::filesystem::path& path, FrameReader::Purpose purpose) {
    auto reader = FrameReader::open(path, purpose);
    std::vector<double> times;
    while (const auto given = reader.next()) times.push_back(given->time);
    return times;
}

}

// Which pictures come is the file's affair, but each has its own time, and they never lie far apart.
TEST(Sampling, givesSomeOfThePicturesAtTheirTrueTimes) {
    MURBO_NEEDS_FFMPEG();
    struct Case {
        const char* name;
        const char* encoding;
        double maxOfAll; ///< the share of all pictures
        double minOfAll;
    };
    for (const auto& [name, encoding, max, min] :
         {Case{"sampled.mp4", "-c:v libx264 -preset veryfast -bf 3 -b_strategy 0 -g 250", 0.6, 0.2},
          Case{"sampled-without-b.mkv", "-c:v libx264 -preset ultrafast -bf 0", 1, 1},
          Case{"sampled-late.ts", "-c:v libx264 -preset veryfast -bf 3 -output_ts_offset 5", 0.9, 0.2},
          Case{"sampled-intra.mov", "-c:v mjpeg -q:v 5", 0.4, 0.3},
          Case{"sampled-woven.ts", "-c:v mpeg2video -q:v 3 -bf 2 -flags +ildct+ilme -top 1", 0.6, 0.3}}) {
        const auto path =
            made::file(name, std::string("-f lavfi -i testsrc2=s=320x240:r=30:d=4 ") + encoding);
        const auto all = timesOf(path, FrameReader::Purpose::playing);
        const auto some = timesOf(path, FrameReader::Purpose::sampling);
        ASSERT_FALSE(some.empty()) << name;
        EXPECT_NEAR(some.front(), all.front(), 1e-9) << name;
        EXPECT_GT(some.back(), all.back() - 0.25) << name;
        EXPECT_LE(static_cast<double>(some.size()), max * static_cast<double>(all.size())) << name;
        EXPECT_GE(static_cast<double>(some.size()), min * static_cast<double>(all.size())) << name;
        for (std::size_t at = 0; at < some.size(); ++at) {
            EXPECT_TRUE(std::binary_search(all.begin(), all.end(), some[at])) << name << " " << some[at];
            if (at > 0) {
                EXPECT_LT(some[at] - some[at - 1], 0.25) << name;
            }
        }
    }
}

TEST(Sampling, givesSmallPicturesAsTheyAre) {
    MURBO_NEEDS_FFMPEG();
    const auto path = made::file("sampled-coarse.mp4",
                                 "-f lavfi -i testsrc2=s=320x240:r=30:d=1 -c:v libx264 "
                                 "-preset veryfast -crf 38 -bf 0 -pix_fmt yuv420p");
    auto all = FrameReader::open(path);
    auto some = FrameReader::open(path, FrameReader::Purpose::sampling);
    const auto drawn = [](const FrameReader::TimedFrame& given) {
        return Canvas::bitmap(Image::frame(given.frame), {0, 0, 320, 240});
    };
    while (const auto sampled = some.next()) {
        const auto played = all.at(sampled->time);
        ASSERT_TRUE(played);
        ASSERT_TRUE(same(drawn(*sampled), drawn(*played))) << sampled->time;
    }
}
