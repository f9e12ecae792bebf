#include "platform/media/FrameReader.h"
#include "platform/media/FrameView.h"
#include "tests/media/Made.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(FrameView, carriesAlpha) {
    MURBO_NEEDS_FFMPEG();
    const auto alpha = made::file(
        "fade.webm",
        "-f lavfi -i \"color=red:s=64x64:d=0.2,format=yuva420p,geq=lum='p(X,Y)':a='if(lt(X,32),255,40)'\" "
        "-c:v libvpx-vp9 -pix_fmt yuva420p");
    const auto given = FrameReader::open(alpha).at(0);
    ASSERT_TRUE(given && given->frame.hasAlpha);
    EXPECT_NEAR(given->frame.planes[3][given->frame.strides[3] * 30 + 5], 255, 4);
    EXPECT_NEAR(given->frame.planes[3][given->frame.strides[3] * 30 + 60], 40, 4);
}

TEST(FrameView, readsTheColoursThatAPictureNamesElseThoseOfItsSize) {
    struct Case {
        int width, height;
        AVColorSpace space;
        AVColorPrimaries primaries;
        AVColorTransferCharacteristic curve;
        const char* told; ///< matrix, primaries and transfer
    };
    constexpr auto noSpace = AVCOL_SPC_UNSPECIFIED;
    constexpr auto noPrimaries = AVCOL_PRI_UNSPECIFIED;
    constexpr auto noCurve = AVCOL_TRC_UNSPECIFIED;
    for (const auto& [width, height, space, primaries, curve, told] :
         {Case{1278, 576, noSpace, noPrimaries, noCurve, "601 709 sdr"},
          {1280, 2, noSpace, noPrimaries, noCurve, "709 709 sdr"},
          {2, 578, noSpace, noPrimaries, noCurve, "709 709 sdr"},
          {64, 64, AVCOL_SPC_SMPTE240M, noPrimaries, noCurve, "709 709 sdr"},
          {64, 64, AVCOL_SPC_BT709, AVCOL_PRI_BT709, AVCOL_TRC_SMPTE2084, "709 709 pq"},
          {1280, 720, AVCOL_SPC_BT470BG, noPrimaries, noCurve, "601 709 sdr"},
          {1280, 720, AVCOL_SPC_SMPTE170M, noPrimaries, noCurve, "601 709 sdr"},
          {1280, 720, AVCOL_SPC_FCC, noPrimaries, noCurve, "601 709 sdr"},
          {64, 64, AVCOL_SPC_BT2020_CL, noPrimaries, noCurve, "2020 2020 sdr"},
          {64, 64, AVCOL_SPC_BT2020_NCL, AVCOL_PRI_BT709, noCurve, "2020 709 sdr"},
          {64, 64, noSpace, AVCOL_PRI_BT2020, noCurve, "2020 2020 sdr"},
          {64, 64, noSpace, noPrimaries, AVCOL_TRC_ARIB_STD_B67, "2020 2020 hlg"},
          {64, 64, noSpace, AVCOL_PRI_BT709, AVCOL_TRC_SMPTE2084, "2020 709 pq"}}) {
        auto picture = made::picture(AV_PIX_FMT_YUV420P, width, height);
        picture->colorspace = space;
        picture->color_primaries = primaries;
        picture->color_trc = curve;
        const auto frame = FrameView::of(std::move(picture), {0, 1, AV_CODEC_ID_H264});
        ASSERT_TRUE(frame);
        constexpr const char* matrices[] = {"601", "709", "2020"};
        constexpr const char* transfers[] = {"sdr", "hlg", "pq"};
        EXPECT_EQ(std::string(matrices[int(frame->matrix)]) +
                      (frame->primaries == Frame::Primaries::bt2020 ? " 2020 " : " 709 ") +
                      transfers[int(frame->transfer)],
                  told)
            << width << " " << space << " " << primaries << " " << curve;
    }
    using Site = Frame::ChromaSite;
    for (const auto& [location, codec, site] :
         {std::tuple{AVCHROMA_LOC_CENTER, AV_CODEC_ID_H264, Site::centre},
          {AVCHROMA_LOC_TOPLEFT, AV_CODEC_ID_H264, Site::topLeft},
          {AVCHROMA_LOC_LEFT, AV_CODEC_ID_MJPEG, Site::left},
          {AVCHROMA_LOC_UNSPECIFIED, AV_CODEC_ID_H264, Site::left},
          {AVCHROMA_LOC_UNSPECIFIED, AV_CODEC_ID_MPEG2VIDEO, Site::left},
          {AVCHROMA_LOC_UNSPECIFIED, AV_CODEC_ID_MPEG1VIDEO, Site::centre},
          {AVCHROMA_LOC_UNSPECIFIED, AV_CODEC_ID_MJPEG, Site::centre},
          {AVCHROMA_LOC_UNSPECIFIED, AV_CODEC_ID_VP8, Site::centre},
          {AVCHROMA_LOC_UNSPECIFIED, AV_CODEC_ID_THEORA, Site::centre}}) {
        auto picture = made::picture(AV_PIX_FMT_YUV420P, 64, 64);
        picture->chroma_location = location;
        EXPECT_EQ(FrameView::of(std::move(picture), {0, 1, codec})->chromaSite, site) << codec;
    }
    for (const auto& [range, codec, full] : {std::tuple{AVCOL_RANGE_UNSPECIFIED, AV_CODEC_ID_H264, false},
                                             {AVCOL_RANGE_UNSPECIFIED, AV_CODEC_ID_MJPEG, true},
                                             {AVCOL_RANGE_UNSPECIFIED, AV_CODEC_ID_PNG, true},
                                             {AVCOL_RANGE_MPEG, AV_CODEC_ID_MJPEG, false},
                                             {AVCOL_RANGE_JPEG, AV_CODEC_ID_H264, true}}) {
        auto picture = made::picture(AV_PIX_FMT_YUV420P, 64, 64);
        picture->color_range = range;
        const auto frame = FrameView::of(std::move(picture), {3, 1.5, codec});
        EXPECT_EQ(frame->fullRange, full) << codec;
        EXPECT_EQ(frame->turn, 3);
        EXPECT_EQ(frame->pixelAspect, 1.5);
    }
    EXPECT_FALSE(FrameView::of(ffmpeg::makePicture(), {0, 1, AV_CODEC_ID_H264}));
}
