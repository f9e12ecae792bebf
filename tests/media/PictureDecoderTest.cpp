#include "platform/media/FrameReader.h"
#include "tests/media/Made.h"

#include <gtest/gtest.h>

using namespace murbo;

// AVI holds no times: its packets are numbered in the order in which they lie, and that is not the pictures'.
TEST(PictureDecoder, showsThePicturesOfAnAviInTheirPlaces) {
    MURBO_NEEDS_FFMPEG();
    const std::pair<const char*, const char*> codecs[] = {
        {"plain.avi", "-c:v mpeg4"},
        {"between.avi", "-c:v mpeg4 -bf 2"},
        {"h264.avi", "-c:v libx264 -bf 2 -g 20 -pix_fmt yuv420p"},
        {"pyramid.avi", "-c:v libx264 -bf 3 -g 20 -x264-params b-pyramid=normal -pix_fmt yuv420p"},
    };
    for (const auto& [name, codec] : codecs) {
        const auto path =
            made::file(name, std::string("-f lavfi -i testsrc2=s=320x180:r=25:d=2 -q:v 3 ") + codec);
        const auto shown = made::pictures(path);
        ASSERT_EQ(shown.size(), 50) << name;
        for (const int step : {1, 7, -3}) {
            FrameReader reader = FrameReader::open(path);
            for (int number = step > 0 ? 0 : 49; number >= 0 && number < 50; number += step) {
                const auto given = reader.at(number / 25.0);
                ASSERT_TRUE(given) << name;
                EXPECT_EQ(made::sum(given->frame), shown[static_cast<std::size_t>(number)].sum)
                    << name << " picture " << number << " by steps of " << step;
            }
        }
    }
}
