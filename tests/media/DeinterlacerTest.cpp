#include "platform/media/Deinterlacer.h"
#include "tests/media/Made.h"

#include <gtest/gtest.h>

using namespace murbo;

namespace {

constexpr int side = 64;

/// A picture whose even rows have one shade and whose odd rows have another.
ffmpeg::Picture comb(int even, int odd, std::int64_t time, bool interlaced, int width = side) {
    auto made = made::picture(AV_PIX_FMT_YUV420P, width, side, 128);
    for (int y = 0; y < side; ++y)
        std::memset(made->data[0] + y * made->linesize[0], y % 2 ? odd : even, std::size_t(width));
    made->interlaced_frame = interlaced;
    made->top_field_first = 1;
    made->pts = time;
    return made;
}

/// The largest step from one row to the next in the middle of a picture.
int roughness(const AVFrame& frame) {
    int most = 0;
    for (int y = 16; y < 48; ++y)
        most = std::max(most, std::abs(frame.data[0][y * frame.linesize[0] + 32] -
                                       frame.data[0][(y + 1) * frame.linesize[0] + 32]));
    return most;
}

}

TEST(Deinterlacer, wholePicturesPassAsTheyAre) {
    auto made = Deinterlacer::make(*comb(40, 200, 0, false), {1, 25});
    ASSERT_TRUE(made);
    auto out = ffmpeg::makePicture();
    for (int number = 0; number < 2; ++number) made->put(comb(40, 200, number, false).get());
    ASSERT_TRUE(made->take(out.get()));
    EXPECT_EQ(roughness(*out), 160);
}

TEST(Deinterlacer, takesPicturesOfItsSizeAndFormatAlone) {
    auto like = comb(0, 0, 0, true);
    auto made = Deinterlacer::make(*like, {1, 25});
    ASSERT_TRUE(made);
    EXPECT_TRUE(made->takes(*comb(9, 9, 5, false)));
    EXPECT_FALSE(made->takes(*comb(0, 0, 0, true, side + 2)));
    like->format = AV_PIX_FMT_YUV422P;
    EXPECT_FALSE(made->takes(*like));
    like->format = AV_PIX_FMT_YUV420P;
    like->height = side - 2;
    EXPECT_FALSE(made->takes(*like));
    like->format = -1;
    EXPECT_FALSE(Deinterlacer::make(*like, {1, 25}));
}
