#include "platform/media/FrameReader.h"
#include "platform/media/MovieWriter.h"
#include "tests/FullDisk.h"
#include "tests/ProblemOf.h"
#include "tests/media/Sounds.h"

#include <limits>

#include <gmock/gmock.h>
#include <sched.h>

using namespace murbo;

namespace {

constexpr int width = 192;
constexpr int height = 128;
constexpr int pictures = 90;
const MovieSettings usual{.width = width, .height = height};

constexpr int colours[] = {0, 100, 150}; // of the second and third plane

// A flat picture whose brightness is its number.
Planes numbered(int number) {
    Planes planes(width, height);
    for (int plane = 0; plane < 3; ++plane)
        for (int y = 0; y < (plane == 0 ? height : height / 2); ++y)
            std::memset(planes.plane(plane) + y * planes.stride(plane),
                        plane == 0 ? 20 + 2 * number : colours[plane], plane == 0 ? width : width / 2);
    return planes;
}

int numberOf(const Frame& frame) {
    return static_cast<int>(std::lround((frame.planes[0][frame.strides[0] * 64 + 96] - 20) / 2.0));
}

// Three seconds with a click at 1.000 s.
std::vector<float> clicking() {
    std::vector<float> samples(3 * Sound::rate * 2);
    samples[Sound::rate * 2] = samples[Sound::rate * 2 + 1] = 0.9f;
    return samples;
}

/// Writes a whole movie; what its file holds.
std::string write(const std::filesystem::path& path, int turns = 3, const MovieSettings& settings = usual) {
    MovieWriter writer = MovieWriter::open(path, settings);
    const auto samples = clicking();
    for (int turn = 0; turn < turns; ++turn) {
        for (int number = 0; number < pictures / turns; ++number)
            writer.picture(numbered(turn * pictures / turns + number));
        const std::size_t part = samples.size() / turns / 2 * 2;
        writer.sound(std::span(samples).subspan(turn * part, part));
    }
    writer.finish();
    return contentsOf(path);
}

}

TEST(MovieWriter, writesWhatReadsBackInStep) {
    const TemporaryFolder folder;
    const auto path = folder / "วิดีโอ 📱 \"1\".mp4";
    const auto bytes = write(
        path, 3,
        {.width = width, .height = height, .preset = "fast", .quality = 10.5, .lookahead = 7, .threads = 3});
    for (const char* chosen : {"crf=10.5", "subme=6", "rc_lookahead=7", " threads=3"})
        EXPECT_THAT(bytes, testing::HasSubstr(chosen)) << "as the encoder writes into its pictures";
    FrameReader reader = FrameReader::open(path);
    ASSERT_TRUE(reader.facts().picture);
    EXPECT_EQ(reader.facts().picture->nominalRate, 30);
    EXPECT_FALSE(reader.facts().picture->variableRate);
    EXPECT_NEAR(reader.facts().length, 3, 0.03);
    for (int number = 0; number < pictures; ++number) {
        const auto frame = reader.at((number + 0.5) / 30);
        ASSERT_TRUE(frame);
        EXPECT_EQ(numberOf(frame->frame), number);
        for (const int plane : {1, 2})
            EXPECT_NEAR(frame->frame.planes[plane][frame->frame.strides[plane] * 32 + 48], colours[plane], 4);
        EXPECT_NEAR(frame->time, number / 30.0, 1e-6);
        EXPECT_EQ(frame->frame.matrix, Frame::Matrix::bt709);
        EXPECT_FALSE(frame->frame.fullRange);
    }
    SoundReader sound = SoundReader::open(path);
    std::vector<float> samples(3 * Sound::rate * 2);
    EXPECT_EQ(sound.read(0, samples), 3 * Sound::rate);
    EXPECT_NEAR(clickAt(samples), 1.0, 0.00005);
    if (made::canMake()) {
        EXPECT_NEAR(clickAt(made::sound(path)), 1.0, 0.00005);
    }
}

TEST(MovieWriter, putsTheIndexInFrontAndTagsTheColours) {
    const TemporaryFolder folder;
    const auto path = folder / "movie.mp4";
    const std::string bytes = write(path, 1);
    EXPECT_LT(bytes.find("moov"), bytes.find("mdat"));
    if (!made::canMake()) GTEST_SKIP() << "The tags are read by the ffprobe program, and it is not here.";
    const std::string found = made::output(
        "ffprobe -v error -show_entries stream=codec_name,profile,pix_fmt,color_range,color_space,"
        "color_transfer,color_primaries,chroma_location,channels,start_time -of csv=p=0 " +
        made::quoted(path));
    EXPECT_THAT(found, testing::HasSubstr("h264,High,yuv420p,tv,bt709,bt709,bt709,left,0.000000"));
    EXPECT_THAT(found, testing::HasSubstr("aac,LC,2,0.000000"));
}

TEST(MovieWriter, writesTheSameBytesOnAnyNumberOfProcessors) {
    const TemporaryFolder folder;
    const std::string all = write(folder / "all.mp4");
    cpu_set_t before;
    ASSERT_EQ(sched_getaffinity(0, sizeof before, &before), 0);
    cpu_set_t one;
    CPU_ZERO(&one);
    for (int processor = 0; CPU_COUNT(&one) == 0; ++processor)
        if (CPU_ISSET(processor, &before)) CPU_SET(processor, &one);
    ASSERT_EQ(sched_setaffinity(0, sizeof one, &one), 0);
    const std::string alone = write(folder / "one.mp4");
    sched_setaffinity(0, sizeof before, &before);
    EXPECT_TRUE(all == alone);
}

TEST(MovieWriter, leavesNothingWhereItIsAbandoned) {
    const TemporaryFolder folder;
    const auto path = folder.file("movie.mp4", "the old one");
    {
        MovieWriter writer = MovieWriter::open(path, usual);
        for (int number = 0; number < pictures; ++number) writer.picture(numbered(number));
    }
    MovieWriter empty = MovieWriter::open(path, usual);
    EXPECT_THROW(empty.finish(), Problem);
    EXPECT_THROW(empty.picture(Planes(64, 64)), Problem);
    EXPECT_EQ(contentsOf(path), "the old one");
    EXPECT_EQ(entriesIn(folder.path), 1);
}

TEST(MovieWriter, saysWhyAPlaceCannotBeWritten) {
    const TemporaryFolder folder;
    const auto missing = folder / "missing";
    EXPECT_EQ(problemOf([&] { MovieWriter::open(missing / "movie.mp4", usual); }),
              "“movie.mp4” could not be written: there is no folder “" + missing.string() + "”.");
    EXPECT_THROW(MovieWriter::open(folder.path, usual), Problem);
    EXPECT_THROW(MovieWriter::open("/proc/movie.mp4", usual), Problem);
    for (const int odd : {191, 0})
        EXPECT_THROW(MovieWriter::open(folder / "odd.mp4", {.width = odd, .height = 128}), Problem) << odd;
    EXPECT_EQ(entriesIn(folder.path), 0);
}

TEST(MovieWriter, aFullDiskLeavesTheOldMovieAndNothingElse) {
    const TemporaryFolder folder;
    const auto path = folder / "movie.mp4";
    const auto size = write(path).size();
    folder.file("movie.mp4", "the old one");
    for (const auto max : {std::size_t{100}, size / 2, size - 1}) {
        std::string problem;
        {
            const FullDisk disk(max);
            problem = problemOf([&] { write(path); });
        }
        EXPECT_THAT(problem, testing::HasSubstr("“movie.mp4” could not be written")) << max;
        EXPECT_EQ(contentsOf(path), "the old one");
        EXPECT_EQ(entriesIn(folder.path), 1);
    }
}

TEST(MovieWriter, soundThatIsNoNumberIsSilenceAndTheRestIsHeard) {
    const TemporaryFolder folder;
    const auto path = folder / "movie.mp4";
    MovieWriter writer = MovieWriter::open(path, usual);
    for (int number = 0; number < pictures; ++number) writer.picture(numbered(number));
    auto samples = clicking();
    samples[4800] = std::numeric_limits<float>::quiet_NaN();
    samples[4801] = -std::numeric_limits<float>::infinity();
    for (const auto& piece : {std::span(samples).first(1000), std::span(samples).subspan(1000, 0),
                              std::span(samples).subspan(1000, 2), std::span(samples).subspan(1002)})
        writer.sound(piece);
    writer.finish();
    SoundReader sound = SoundReader::open(path);
    std::vector<float> read(samples.size());
    EXPECT_EQ(sound.read(0, read), 3 * Sound::rate) << "down to the last piece of a frame";
    EXPECT_NEAR(clickAt(read), 1.0, 0.00005);
}
