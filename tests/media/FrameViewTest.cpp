#include "platform/media/FrameReader.h"
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
        {"sd.mp4", small + x264 + "yuv420p", "420 8 601"},
        {"hd.mp4", large + x264 + "yuv420p", "420 8 709"},
        {"tagged.mp4", small + x264 + "yuv420p -colorspace bt709", "420 8 709"},
        {"full.mp4", small + x264 + "yuvj420p", "420 8 full 601"},
        {"422.mkv", large + x264 + "yuv422p10le", "422 10 709"},
        {"444.mkv", large + x264 + "yuv444p", "444 8 709"},
        {"grey.mkv", small + "-c:v ffv1 -pix_fmt gray", "grey 8 full 601"},
        {"rgb.mkv", small + "-c:v libx264rgb", "bgra"},
        {"mjpeg.avi", small + "-c:v mjpeg -pix_fmt yuvj422p", "422 8 full 601"},
        {"411.avi", small + "-c:v rawvideo -pix_fmt yuv411p", "444 8 601"},
        {"packed.mov", small + "-c:v rawvideo -pix_fmt uyvy422", "422 8 601"},
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
    const std::pair<const char*, Frame::Transfer> curves[] = {{"arib-std-b67", Frame::Transfer::hlg},
                                                              {"smpte2084", Frame::Transfer::pq}};
    for (const auto& [curve, transfer] : curves) {
        const auto path = made::file(
            std::string(curve) + ".mp4",
            std::string("-f lavfi -i testsrc=s=128x64:d=0.2 -c:v libx265 -x265-params log-level=0 "
                        "-pix_fmt yuv420p10le -color_primaries bt2020 -colorspace bt2020nc -color_trc ") +
                curve);
        FrameReader reader = FrameReader::open(path);
        EXPECT_TRUE(reader.facts().picture->highDynamicRange);
        const Frame frame = reader.at(0)->frame;
        EXPECT_EQ(frame.transfer, transfer);
        EXPECT_EQ(frame.primaries, Frame::Primaries::bt2020);
        EXPECT_EQ(frame.matrix, Frame::Matrix::bt2020);
        EXPECT_EQ(frame.depth, 10);
    }
}
