#include "platform/media/FrameReader.h"
#include "platform/media/FrameView.h"
#include "tests/media/Made.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(FrameView, tellsHowThePictureIsStored) {
    MURBO_NEEDS_FFMPEG();
    const auto told = [](const Frame& frame) {
        if (frame.layout == Frame::Layout::bgra)
            return std::string("bgra") + (frame.hasAlpha ? " alpha" : "");
        constexpr const char* layouts[] = {"grey", "420", "422", "444", "bgra"};
        return std::string(layouts[static_cast<int>(frame.layout)]) + " " + std::to_string(frame.depth) +
               (frame.hasAlpha ? " alpha" : "") + (frame.fullRange ? " full" : "") +
               (frame.matrix == Frame::Matrix::bt709 ? " 709" : " 601");
    };
    const std::string small = "-f lavfi -i testsrc=s=320x180:d=0.2 ";
    const std::string large = "-f lavfi -i testsrc=s=1280x720:d=0.2 ";
    const std::string x264 = "-c:v libx264 -preset ultrafast -pix_fmt ";
    const std::tuple<const char*, std::string, const char*> cases[] = {
        {"tagged.mp4", small + x264 + "yuv420p -colorspace bt709", "420 8 709"},
        {"grey.mkv", small + "-c:v ffv1 -pix_fmt gray", "grey 8 full 601"},
        {"rgb.mkv", small + "-c:v libx264rgb", "bgra"},
        {"411.avi", small + "-c:v rawvideo -pix_fmt yuv411p", "444 8 601"},
        {"animation.mov", small + "-c:v qtrle -pix_fmt argb", "bgra alpha"},
        {"prores.mov", large + "-c:v prores_ks -profile:v 4444 -pix_fmt yuva444p10le", "444 12 alpha 709"},
        {"alpha8.webm", small + "-c:v libvpx -auto-alt-ref 0 -pix_fmt yuva420p", "420 8 alpha 601"},
        {"alpha9.webm", small + "-c:v libvpx-vp9 -pix_fmt yuva420p", "420 8 alpha 601"},
        {"animated.gif", small, "bgra alpha"},
    };
    for (const auto& [name, arguments, stored] : cases) {
        const auto given = FrameReader::open(made::file(name, arguments)).at(0.1);
        ASSERT_TRUE(given) << name;
        EXPECT_EQ(told(given->frame), stored) << name;
    }
}

TEST(FrameView, carriesAlphaAndHighDynamicRange) {
    MURBO_NEEDS_FFMPEG();
    const auto alpha = made::file(
        "fade.webm",
        "-f lavfi -i \"color=red:s=64x64:d=0.2,format=yuva420p,geq=lum='p(X,Y)':a='if(lt(X,32),255,40)'\" "
        "-c:v libvpx-vp9 -pix_fmt yuva420p");
    const auto given = FrameReader::open(alpha).at(0);
    ASSERT_TRUE(given && given->frame.hasAlpha);
    EXPECT_NEAR(given->frame.planes[3][given->frame.strides[3] * 30 + 5], 255, 4);
    EXPECT_NEAR(given->frame.planes[3][given->frame.strides[3] * 30 + 60], 40, 4);
    FrameReader reader = FrameReader::open(made::file(
        "hlg.mp4",
        "-f lavfi -i testsrc=s=128x64:d=0.2 -c:v libx265 -x265-params log-level=0 -pix_fmt yuv420p10le "
        "-color_primaries bt2020 -colorspace bt2020nc -color_trc arib-std-b67"));
    EXPECT_TRUE(reader.facts().picture->highDynamicRange);
    const Frame frame = reader.at(0)->frame;
    EXPECT_EQ(frame.transfer, Frame::Transfer::hlg);
    EXPECT_EQ(frame.primaries, Frame::Primaries::bt2020);
    EXPECT_EQ(frame.matrix, Frame::Matrix::bt2020);
    EXPECT_EQ(frame.depth, 10);
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
