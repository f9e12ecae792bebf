#include "platform/base/Problem.h"
#include "platform/media/FrameReader.h"
#include "tests/media/Made.h"

#include <random>

#include <gtest/gtest.h>

using namespace murbo;

namespace {

/// From when a picture counts as on: exactly, where it has a place on the grid.
double onFrom(double written, const PictureGrid& grid) {
    const auto place = grid.near(written, 0.001);
    return place ? *place - 1e-6 : written - FrameReader::tolerance - 1e-6;
}

const made::Shown& expected(const std::vector<made::Shown>& shown, double time,
                            const PictureGrid& grid = {}) {
    const made::Shown* found = &shown.front();
    for (const made::Shown& each : shown)
        if (onFrom(each.time, grid) <= time) found = &each;
    return *found;
}

void expectSame(const std::optional<FrameReader::TimedFrame>& given, const made::Shown& wanted,
                double asked) {
    ASSERT_TRUE(given) << "asked for " << asked;
    EXPECT_NEAR(given->time, wanted.time, 0.0006) << "asked for " << asked;
    EXPECT_EQ(made::sum(given->frame), wanted.sum) << "asked for " << asked << ", given " << given->time;
}

// Random jumps, small steps forward and times outside the file, each against a full decode by the ffmpeg
// program.
void expectExact(const std::filesystem::path& path, const std::string& filter = "null", int jumps = 6) {
    SCOPED_TRACE(path.filename().string());
    const auto shown = made::pictures(path, filter);
    ASSERT_FALSE(shown.empty());
    const auto grid = MediaFile::facts(path).picture->grid;
    const double length = shown.back().time + 0.1;
    for (const auto purpose : {FrameReader::Purpose::stills, FrameReader::Purpose::playing}) {
        FrameReader reader = FrameReader::open(path, purpose);
        std::mt19937 random(7);
        std::uniform_real_distribution<double> anywhere(0, length);
        std::uniform_real_distribution<double> little(0, 1.2);
        for (int jump = 0; jump < jumps; ++jump) {
            double time = anywhere(random);
            for (int step = 0; step < 3; ++step, time += little(random))
                expectSame(reader.at(time), expected(shown, time, grid), time);
        }
        for (const double time : {-1.0, 0.0, length, length + 100, 0.0, 1e300, -1e300})
            expectSame(reader.at(time), expected(shown, time, grid), time);
    }
}

// Every picture in order, by steps and by the times of a frame grid.
void expectAll(const std::filesystem::path& path, const std::string& filter = "null", double later = 0) {
    SCOPED_TRACE(path.filename().string());
    auto shown = made::pictures(path, filter);
    for (made::Shown& each : shown) each.time += later;
    FrameReader reader = FrameReader::open(path);
    const auto grid = reader.facts().picture->grid;
    for (const made::Shown& each : shown) expectSame(reader.next(), each, each.time);
    EXPECT_FALSE(reader.next());
    for (int number = 0; number < 40; ++number) {
        const double time = number / 30.0;
        expectSame(reader.at(time), expected(shown, time, grid), time);
    }
}

const std::string moving = "-f lavfi -i testsrc2=s=160x90:r=30:d=7 ";
std::filesystem::path movingMovie() {
    return made::file("moving.mp4", moving + "-c:v libx264 -g 100 -bf 3 -pix_fmt yuv420p");
}
std::string fromMoving(const std::string& arguments) {
    return "-i " + made::quoted(movingMovie()) + " " + arguments;
}

/// Movies of every kind: what each is called, and how it is made.
const std::map<std::string, std::string>& kinds() {
    const std::string h264 = moving + "-c:v libx264 -preset veryfast -pix_fmt yuv420p -g 100 ";
    static const std::map<std::string, std::string> all = {
        {"b-frames.mp4", h264 + "-bf 4 -x264-params b-pyramid=normal"},
        {"open-gop.mkv", h264 + "-bf 3 -x264-params open-gop=1:keyint=60"},
        {"uneven.mp4", h264 + "-vf select='not(mod(n\\,7))+lt(mod(n\\,40)\\,9)' -fps_mode vfr -bf 3"},
        {"stream.ts", h264 + "-bf 2 -muxdelay 0.7"},
        {"turned.mp4", fromMoving("-c copy -metadata:s:v rotate=90")},
        {"cut.mp4", "-ss 2.21 " + fromMoving("-c copy")},
        {"no-keyframe-at-start.mp4", "-ss 2.21 " + fromMoving("-c copy -bsf:v noise=drop='lt(n\\,8)'")},
        {"ten-bits.mkv", moving + "-c:v libx264 -preset veryfast -pix_fmt yuv422p10le -g 60"},
        {"hevc.mp4",
         moving + "-c:v libx265 -preset ultrafast -x265-params log-level=0:keyint=60 -pix_fmt yuv420p10le"},
        {"vp9.webm", moving + "-c:v libvpx-vp9 -deadline realtime -cpu-used 8 -b:v 500k -g 60"},
        {"pieces.mp4", h264 + "-movflags frag_keyframe+empty_moov"},
        {"fields.ts", "-f lavfi -i testsrc2=s=160x96:r=25:d=6 -c:v mpeg2video -q:v 3 -g 15 -bf 2"},
    };
    return all;
}

std::filesystem::path kind(const std::string& name) {
    return made::file(name, kinds().at(name));
}

}

TEST(FrameReader, givesTheExactPictureInEveryKindOfFile) {
    MURBO_NEEDS_FFMPEG();
    for (const auto& [name, arguments] : kinds()) expectExact(made::file(name, arguments));
    for (const char* name :
         {"b-frames.mp4", "uneven.mp4", "stream.ts", "cut.mp4", "open-gop.mkv", "hevc.mp4"})
        expectAll(kind(name));
}

TEST(FrameReader, givesWholePicturesOfInterlacedFilesWhereverReadingBegins) {
    MURBO_NEEDS_FFMPEG();
    const auto path = made::file("interlaced.ts",
                                 "-f lavfi -i testsrc2=s=160x96:r=50:d=6 -vf interlace -c:v mpeg2video "
                                 "-flags +ildct+ilme -q:v 3 -g 15 -bf 2");
    const char* filter = "bwdif=mode=send_frame:parity=auto:deint=interlaced";
    expectExact(path, filter);
    expectAll(path, filter);
    EXPECT_TRUE(FrameReader::open(path).facts().picture->interlaced);
    EXPECT_EQ(FrameReader::open(path).facts().picture->nominalRate, 25);
}

TEST(FrameReader, givesTheExactPictureInRealFootage) {
    const std::filesystem::path folder = MURBO_FOOTAGE;
    if (!std::filesystem::exists(folder)) GTEST_SKIP() << "The real footage is not on this machine.";
    MURBO_NEEDS_FFMPEG();
    expectAll(folder / "คลิปโทรศัพท์ 📱 (1).mp4");
    expectExact(folder / "phone-vfr-portrait.mp4", "null", 1);
    // Its sound begins before its first keyframe.
    expectAll(folder / "camera-avchd-50i.mts", "bwdif=mode=send_frame:parity=auto:deint=interlaced", 0.08);
}

TEST(FrameReader, beginsATrimmedMovieWithTheFirstPictureThatCanBeDecoded) {
    MURBO_NEEDS_FFMPEG();
    // As phones write it: an edit list that begins where no keyframe lies before, and composition offsets
    // below 0.
    const auto whole = made::file("before-trimming.mp4",
                                  "-f lavfi -i testsrc2=s=160x90:r=30:d=5 -c:v libx264 -preset ultrafast "
                                  "-pix_fmt yuv420p -x264-params "
                                  "keyint=20:scenecut=0:bframes=8:b-adapt=0:b-pyramid=normal");
    const auto trimmed = made::file(
        "trimmed.mp4", "-ss 1.32 -i " + made::quoted(whole) +
                           " -c copy -bsf:v noise=drop='lt(n\\,1)' -movflags negative_cts_offsets");
    const auto shown = made::pictures(whole);
    FrameReader reader = FrameReader::open(trimmed);
    for (const int number : {0, 1, 2, 9, 30, 60, 5, 0}) {
        const auto given = reader.at(number / 30.0);
        ASSERT_TRUE(given) << number;
        EXPECT_NEAR(given->time, number / 30.0, 0.001);
        EXPECT_EQ(made::sum(given->frame), shown.at(40 + std::size_t(number)).sum) << number;
    }
    EXPECT_NEAR(reader.facts().length, 3.68, 0.03);
}

TEST(FrameReader, goesOnFromAKeyframeAndFromWhereItWasStopped) {
    MURBO_NEEDS_FFMPEG();
    const auto path = made::file("keyframes.mp4",
                                 "-f lavfi -i testsrc=s=320x180:r=30:d=6 -c:v libx264 -g 60 -keyint_min 60 "
                                 "-sc_threshold 0 -bf 2 -pix_fmt yuv420p");
    const auto shown = made::pictures(path);
    FrameReader reader = FrameReader::open(path);
    for (const double asked : {5.5, 2.01, 0.5, 3.99}) {
        const double key = 2 * std::floor(asked / 2);
        expectSame(reader.keyframe(asked), expected(shown, key), asked);
        expectSame(reader.next(), expected(shown, key + 0.034), asked);
        expectSame(reader.at(asked + 0.01), expected(shown, asked + 0.01), asked);
    }
    std::stop_source stopped;
    stopped.request_stop();
    for (const auto& [given_up, asked] : {std::pair{5.9, 5.1}, {1.9, 1.5}, {1.9, 1.5}}) {
        EXPECT_FALSE(reader.at(given_up, stopped.get_token()));
        expectSame(reader.at(asked), expected(shown, asked), asked);
    }
}

TEST(FrameReader, keepsAFrameWholeAfterItsReaderIsGone) {
    MURBO_NEEDS_FFMPEG();
    const auto path = movingMovie();
    const auto shown = made::pictures(path);
    std::vector<FrameReader::TimedFrame> kept;
    {
        FrameReader reader = FrameReader::open(path);
        while (kept.size() < 60) kept.push_back(*reader.next());
    }
    for (std::size_t index = 0; index < kept.size(); ++index)
        EXPECT_EQ(made::sum(kept[index].frame), shown[index].sum) << index;
}

TEST(FrameReader, livesWithPicturesThatChangeTheirShape) {
    MURBO_NEEDS_FFMPEG();
    const auto one = made::file("one.ts", "-f lavfi -i testsrc=s=320x180:d=1 -c:v libx264 -pix_fmt yuv420p");
    const auto two = made::file(
        "two.ts", "-f lavfi -i testsrc=s=640x480:d=1 -output_ts_offset 1 -c:v libx264 -pix_fmt yuv444p");
    const auto both = made::folder() / "both.ts";
    std::system(("cat " + made::quoted(one) + " " + made::quoted(two) + " > " + made::quoted(both)).c_str());
    FrameReader reader = FrameReader::open(both);
    EXPECT_EQ(reader.at(0.5)->frame.width, 320);
    EXPECT_EQ(reader.at(1.5)->frame.width, 640);
    EXPECT_EQ(reader.at(0.2)->frame.width, 320);
}

TEST(FrameReader, passesOverWhatIsBroken) {
    MURBO_NEEDS_FFMPEG();
    std::mt19937 random(11);
    for (const char* name : {"b-frames.mp4", "stream.ts", "open-gop.mkv", "vp9.webm"}) {
        SCOPED_TRACE(name);
        const std::string whole = contentsOf(kind(name));
        for (int round = 0; round < 12; ++round) {
            std::string bytes = whole;
            for (int fault = 0; fault < 1 << round; ++fault)
                bytes[random() % bytes.size()] = static_cast<char>(random());
            if (round % 3 == 2) bytes.resize(random() % bytes.size());
            const auto path = made::folder() / (std::string("broken-") + name);
            std::ofstream(path, std::ios::binary) << bytes;
            try {
                FrameReader reader = FrameReader::open(path);
                for (const double time : {3.0, 9.0, 9.1, 100.0, 0.0, std::nan("")}) reader.at(time);
                for (int count = 0; count < 20 && reader.next(); ++count) {
                }
            } catch (const Problem& problem) {
                EXPECT_NE(problem.message(), "");
            }
        }
    }
}
