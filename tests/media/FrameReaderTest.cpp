#include "platform/base/Problem.h"
#include "platform/media/FrameReader.h"
#include "tests/media/Made.h"

#include <random>

#include <gtest/gtest.h>

using namespace murbo;

namespace {

// The sum that ffmpeg's framecrc prints: Adler-32, begun at 0, over the rows of all planes one after the
// other.
std::uint32_t sum(const Frame& frame) {
    std::uint32_t low = 0;
    std::uint32_t high = 0;
    const auto row = [&](const std::uint8_t* bytes, int count) {
        for (int index = 0; index < count; ++index) {
            low = (low + bytes[index]) % 65521;
            high = (high + low) % 65521;
        }
    };
    const bool halfWidth =
        frame.layout == Frame::Layout::chroma420 || frame.layout == Frame::Layout::chroma422;
    const bool halfHeight = frame.layout == Frame::Layout::chroma420;
    const int bytes = frame.depth > 8 ? 2 : 1;
    const int planes = frame.layout == Frame::Layout::bgra || frame.layout == Frame::Layout::grey ? 1 : 3;
    for (int plane = 0; plane < planes + (frame.hasAlpha && planes == 3); ++plane) {
        const bool chroma = plane == 1 || plane == 2;
        const int width = chroma && halfWidth ? (frame.width + 1) / 2 : frame.width;
        const int height = chroma && halfHeight ? (frame.height + 1) / 2 : frame.height;
        const int wide = frame.layout == Frame::Layout::bgra ? 4 : bytes;
        for (int y = 0; y < height; ++y) row(frame.planes[plane] + y * frame.strides[plane], width * wide);
    }
    return high << 16 | low;
}

// Away from the instants at which pictures change, which formats round each in their way.
double unmistakable(const std::vector<made::Shown>& shown, double time) {
    for (const made::Shown& each : shown)
        if (std::abs(each.time - time) < 0.001) return each.time + 0.001;
    return time;
}

const made::Shown& expected(const std::vector<made::Shown>& shown, double time) {
    const made::Shown* found = &shown.front();
    for (const made::Shown& each : shown)
        if (each.time <= time + 0.0005) found = &each;
    return *found;
}

void expectSame(const std::optional<FrameReader::TimedFrame>& given, const made::Shown& wanted,
                double asked) {
    ASSERT_TRUE(given) << "asked for " << asked;
    EXPECT_NEAR(given->time, wanted.time, 0.0006) << "asked for " << asked;
    EXPECT_EQ(sum(given->frame), wanted.sum) << "asked for " << asked << ", given " << given->time;
}

// Random jumps, small steps forward and times outside the file, each against a full decode by the ffmpeg
// program.
void expectExact(const std::filesystem::path& path, const std::string& filter = "null", int jumps = 24) {
    SCOPED_TRACE(path.filename().string());
    const auto shown = made::pictures(path, filter);
    ASSERT_FALSE(shown.empty());
    const double length = shown.back().time + 0.1;
    for (const auto purpose : {FrameReader::Purpose::stills, FrameReader::Purpose::playing}) {
        FrameReader reader = FrameReader::open(path, purpose);
        std::mt19937 random(7);
        std::uniform_real_distribution<double> anywhere(0, length);
        std::uniform_real_distribution<double> little(0, 1.2);
        for (int jump = 0; jump < jumps; ++jump) {
            double time = unmistakable(shown, anywhere(random));
            for (int step = 0; step < 3; ++step, time = unmistakable(shown, time + little(random)))
                expectSame(reader.at(time), expected(shown, time), time);
        }
        for (const double time : {-1.0, 0.0, length, length + 100, 0.0, 1e300, -1e300})
            expectSame(reader.at(time), expected(shown, time), time);
    }
}

// Every picture in order, by steps and by the times of a frame grid.
void expectAll(const std::filesystem::path& path, const std::string& filter = "null") {
    SCOPED_TRACE(path.filename().string());
    const auto shown = made::pictures(path, filter);
    FrameReader reader = FrameReader::open(path);
    for (const made::Shown& each : shown) expectSame(reader.next(), each, each.time);
    EXPECT_FALSE(reader.next());
    for (int number = 0; number < 40; ++number)
        expectSame(reader.at(number / 30.0), expected(shown, number / 30.0), number / 30.0);
}

const std::string moving = "-f lavfi -i testsrc2=s=320x180:r=30:d=14 ";
const std::string fromMoving(const std::string& name) {
    return "-i " +
           made::quoted(made::file("moving.mp4", moving + "-c:v libx264 -g 100 -bf 3 -pix_fmt yuv420p")) +
           " " + name;
}

struct Case {
    const char* name;
    std::string arguments;
};

}

TEST(FrameReader, givesTheExactPictureInEveryKindOfFile) {
    MURBO_NEEDS_FFMPEG();
    const std::string h264 = moving + "-c:v libx264 -preset veryfast -pix_fmt yuv420p -g 100 ";
    const Case cases[] = {
        {"b-frames.mp4", h264 + "-bf 4 -x264-params b-pyramid=normal"},
        {"open-gop.mkv", h264 + "-bf 3 -x264-params open-gop=1:keyint=60"},
        {"open-gop.mp4", h264 + "-bf 3 -x264-params open-gop=1:keyint=60"},
        {"uneven.mp4", h264 + "-vf select='not(mod(n\\,7))+lt(mod(n\\,40)\\,9)' -fps_mode vfr -bf 3"},
        {"stream.ts", h264 + "-bf 2 -muxdelay 0.7"},
        {"turned.mp4", fromMoving("-c copy -metadata:s:v rotate=90")},
        {"cut.mp4", "-ss 5.21 " + fromMoving("-c copy")},
        {"short-gop.mov", moving + "-c:v mpeg4 -g 12 -q:v 4"},
        {"old.avi", moving + "-c:v mpeg4 -g 50 -q:v 4"},
        {"ten-bits.mkv", moving + "-c:v libx264 -preset veryfast -pix_fmt yuv422p10le -g 60"},
        {"hevc.mp4",
         moving + "-c:v libx265 -preset ultrafast -x265-params log-level=0:keyint=60 -pix_fmt yuv420p10le"},
        {"vp9.webm", moving + "-c:v libvpx-vp9 -deadline realtime -cpu-used 8 -b:v 500k -g 60"},
        {"pieces.mp4", h264 + "-movflags frag_keyframe+empty_moov"},
        {"fields.ts", "-f lavfi -i testsrc2=s=320x192:r=25:d=6 -c:v mpeg2video -q:v 3 -g 15 -bf 2"},
    };
    for (const Case& each : cases) expectExact(made::file(each.name, each.arguments));
    for (const char* name :
         {"b-frames.mp4", "uneven.mp4", "stream.ts", "cut.mp4", "open-gop.mkv", "hevc.mp4"})
        expectAll(made::folder() / name);
}
