#include "platform/media/PictureConversion.h"
#include "tests/media/Made.h"

#include <cstring>

#include <gtest/gtest.h>

extern "C" {
#include <libavutil/pixdesc.h>
}

using namespace murbo;

namespace {

std::string nameOf(AVPixelFormat format) {
    return av_get_pix_fmt_name(format);
}

std::uint16_t wordAt(const AVFrame& frame, int plane) {
    std::uint16_t word = 0;
    std::memcpy(&word, frame.data[plane], 2);
    return word;
}

}

TEST(PictureConversion, knowsWhatAFrameCanDescribe) {
    const auto told = [](const PictureLayout& layout) {
        constexpr const char* layouts[] = {"grey", "420", "422", "444", "bgra"};
        return std::string(layouts[static_cast<int>(layout.layout)]) + " " + std::to_string(layout.depth) +
               (layout.highBits ? " high" : "") + (layout.interleavedChroma ? " pairs" : "") +
               (layout.hasAlpha ? " alpha" : "");
    };
    constexpr std::pair<AVPixelFormat, const char*> cases[] = {
        {AV_PIX_FMT_YUV420P, "420 8"},        {AV_PIX_FMT_YUVJ422P, "422 8"},
        {AV_PIX_FMT_YUV444P, "444 8"},        {AV_PIX_FMT_GRAY8, "grey 8"},
        {AV_PIX_FMT_GRAY16LE, "grey 16"},     {AV_PIX_FMT_YUV420P10LE, "420 10"},
        {AV_PIX_FMT_YUV422P12LE, "422 12"},   {AV_PIX_FMT_NV12, "420 8 pairs"},
        {AV_PIX_FMT_NV16, "422 8 pairs"},     {AV_PIX_FMT_P010LE, "420 10 high pairs"},
        {AV_PIX_FMT_YUVA444P, "444 8 alpha"}, {AV_PIX_FMT_YUVA420P10LE, "420 10 alpha"},
        {AV_PIX_FMT_BGRA, "bgra 8 alpha"},    {AV_PIX_FMT_BGR0, "bgra 8"}};
    for (const auto& [format, expected] : cases) {
        const auto found = PictureConversion::layout(format);
        ASSERT_TRUE(found) << nameOf(format);
        EXPECT_EQ(told(*found), expected) << nameOf(format);
    }
}

TEST(PictureConversion, leavesTheRestToBeConvertedAndThenItCan) {
    constexpr std::pair<AVPixelFormat, AVPixelFormat> cases[] = {
        {AV_PIX_FMT_RGB24, AV_PIX_FMT_BGR0},
        {AV_PIX_FMT_RGB0, AV_PIX_FMT_BGR0},
        {AV_PIX_FMT_RGBA, AV_PIX_FMT_BGRA},
        {AV_PIX_FMT_PAL8, AV_PIX_FMT_BGRA},
        {AV_PIX_FMT_GBRP, AV_PIX_FMT_BGR0},
        {AV_PIX_FMT_NV21, AV_PIX_FMT_YUV420P},
        {AV_PIX_FMT_YUYV422, AV_PIX_FMT_YUV422P},
        {AV_PIX_FMT_YUV411P, AV_PIX_FMT_YUV444P},
        {AV_PIX_FMT_YUV420P10BE, AV_PIX_FMT_YUV420P12LE},
        {AV_PIX_FMT_YUV422P10BE, AV_PIX_FMT_YUV422P12LE},
        {AV_PIX_FMT_YUVA444P10BE, AV_PIX_FMT_YUVA444P12LE},
        {AV_PIX_FMT_GRAY10BE, AV_PIX_FMT_GRAY16LE},
        {AV_PIX_FMT_MONOBLACK, AV_PIX_FMT_GRAY8},
        {AV_PIX_FMT_YA8, AV_PIX_FMT_BGRA}};
    for (const auto& [format, target] : cases) {
        EXPECT_FALSE(PictureConversion::layout(format)) << nameOf(format);
        const auto made = PictureConversion::converted(made::picture(format, 32, 16, 0));
        ASSERT_TRUE(made) << nameOf(format);
        EXPECT_EQ(nameOf(static_cast<AVPixelFormat>(made->format)), nameOf(target)) << nameOf(format);
        EXPECT_TRUE(PictureConversion::layout(target)) << nameOf(format);
        EXPECT_EQ(made->width, 32);
        EXPECT_EQ(made->height, 16);
    }
}

TEST(PictureConversion, keepsSamplesTimesAndColours) {
    for (const auto range : {AVCOL_RANGE_MPEG, AVCOL_RANGE_JPEG}) {
        auto packed = made::picture(AV_PIX_FMT_YUYV422, 32, 16, 200);
        packed->color_range = range;
        packed->pts = 77;
        packed->colorspace = AVCOL_SPC_BT709;
        const auto made = PictureConversion::converted(std::move(packed));
        for (int plane = 0; plane < 3; ++plane) EXPECT_EQ(made->data[plane][0], 200) << plane << range;
        EXPECT_EQ(made->pts, 77);
        EXPECT_EQ(made->colorspace, AVCOL_SPC_BT709);
        auto grey = made::picture(AV_PIX_FMT_YA8, 32, 16, 235);
        grey->color_range = range;
        EXPECT_EQ(PictureConversion::converted(std::move(grey))->data[0][0],
                  range == AVCOL_RANGE_JPEG ? 235 : 255);
    }
    auto red = made::picture(AV_PIX_FMT_RGB24, 32, 16, 0);
    for (int x = 0; x < 32; ++x) red->data[0][3 * x] = 255;
    const auto pixels = PictureConversion::converted(std::move(red));
    EXPECT_EQ(pixels->data[0][2], 255);
    EXPECT_EQ(pixels->data[0][0], 0);
    auto deep = made::picture(AV_PIX_FMT_YUV420P10BE, 32, 16, 0);
    for (int x = 0; x < 32; ++x) deep->data[0][2 * x + 1] = 200; // 200 of 1023
    EXPECT_EQ(wordAt(*PictureConversion::converted(std::move(deep)), 0), 800) << "of 4095";
    EXPECT_FALSE(PictureConversion::converted(ffmpeg::makePicture())) << "of no format";
}
