#include "platform/base/Problem.h"
#include "platform/media/FrameReader.h"
#include "platform/media/MovieWriter.h"
#include "platform/media/SoundReader.h"
#include "platform/media/UnfinishedFile.h"
#include "tests/media/Made.h"

#include <csignal>
#include <fstream>

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace murbo;

namespace {

constexpr int width = 192;
constexpr int height = 128;
constexpr int pictures = 90;

// A flat picture whose grey tells its number.
Planes numbered(int number) {
    Planes planes(width, height);
    for (int plane = 0; plane < 3; ++plane)
        for (int y = 0; y < (plane == 0 ? height : height / 2); ++y)
            std::memset(planes.plane(plane) + y * planes.stride(plane), plane == 0 ? 20 + 2 * number : 128,
                        plane == 0 ? width : width / 2);
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

double clickAt(const std::vector<float>& samples) {
    std::size_t at = 0;
    for (std::size_t index = 0; index < samples.size(); index += 2)
        if (std::abs(samples[index]) > std::abs(samples[at])) at = index;
    return static_cast<double>(at) / 2 / Sound::rate;
}

void write(MovieWriter& writer, int turns = 3) {
    const auto samples = clicking();
    for (int turn = 0; turn < turns; ++turn) {
        for (int number = 0; number < pictures / turns; ++number)
            writer.picture(numbered(turn * pictures / turns + number));
        const std::size_t part = samples.size() / turns / 2 * 2;
        writer.sound(std::span(samples).subspan(turn * part, part));
    }
}

std::filesystem::path emptyFolder(const char* name) {
    const auto path = made::folder() / name;
    std::filesystem::remove_all(path);
    std::filesystem::create_directory(path);
    return path;
}

std::size_t entries(const std::filesystem::path& folder) {
    return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(folder), {}));
}

std::string text(const std::filesystem::path& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

}

TEST(MovieWriter, writesWhatReadsBackInStep) {
    const auto path = emptyFolder("step") / "วิดีโอ 📱 \"1\".mp4";
    MovieWriter writer = MovieWriter::open(path, {.width = width, .height = height, .quality = 10});
    write(writer);
    writer.finish();

    FrameReader reader = FrameReader::open(path);
    ASSERT_TRUE(reader.facts().picture);
    EXPECT_EQ(reader.facts().picture->nominalRate, 30);
    EXPECT_FALSE(reader.facts().picture->variableRate);
    EXPECT_NEAR(reader.facts().length, 3, 0.03);
    for (int number = 0; number < pictures; ++number) {
        const auto frame = reader.at((number + 0.5) / 30);
        ASSERT_TRUE(frame);
        EXPECT_EQ(numberOf(frame->frame), number);
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
    const auto path = emptyFolder("tags") / "movie.mp4";
    MovieWriter writer = MovieWriter::open(path, {.width = width, .height = height});
    write(writer, 1);
    writer.finish();
    const std::string bytes = text(path);
    EXPECT_LT(bytes.find("moov"), bytes.find("mdat"));
    if (!made::canMake()) GTEST_SKIP() << "The tags are read by the ffprobe program, and it is not here.";
    const std::string told = made::output(
        "ffprobe -v error -show_entries stream=codec_name,profile,pix_fmt,color_range,color_space,"
        "color_transfer,color_primaries,chroma_location,channels,start_time -of csv=p=0 " +
        made::quoted(path));
    EXPECT_NE(told.find("h264,High,yuv420p,tv,bt709,bt709,bt709,left,0.000000"), std::string::npos) << told;
    EXPECT_NE(told.find("aac,LC,2,0.000000"), std::string::npos) << told;
}

TEST(MovieWriter, leavesNothingWhereItIsAbandoned) {
    const auto folder = emptyFolder("abandoned");
    const auto path = folder / "movie.mp4";
    std::ofstream(path) << "the old one";
    {
        MovieWriter writer = MovieWriter::open(path, {.width = width, .height = height});
        write(writer);
    }
    {
        MovieWriter writer = MovieWriter::open(path, {.width = width, .height = height});
        EXPECT_THROW(writer.finish(), Problem);
        EXPECT_THROW(writer.picture(Planes(64, 64)), Problem);
    }
    {
        UnfinishedFile named(path, true);
        EXPECT_EQ(entries(folder), 2u);
    }
    EXPECT_TRUE(text(path) == "the old one");
    EXPECT_EQ(entries(folder), 1u);
}

TEST(MovieWriter, takesTheOldOnesPlaceAsAWhole) {
    for (const bool named : {false, true}) {
        const auto folder = emptyFolder("place");
        const auto path = folder / "movie.mp4";
        std::ofstream(path) << "the old one";
        UnfinishedFile file(path, named);
        ASSERT_EQ(::write(file.descriptor(), "new", 3), 3);
        EXPECT_TRUE(text(path) == "the old one");
        file.finish();
        EXPECT_EQ(text(path), "new");
        EXPECT_EQ(entries(folder), 1u);
        EXPECT_EQ(std::filesystem::status(path).permissions() & std::filesystem::perms::owner_exec,
                  std::filesystem::perms::none);
    }
}

TEST(MovieWriter, saysWhyAPlaceCannotBeWritten) {
    const MovieSettings settings{.width = width, .height = height};
    const auto folder = emptyFolder("places");
    EXPECT_THROW(MovieWriter::open(folder / "missing" / "movie.mp4", settings), Problem);
    EXPECT_THROW(MovieWriter::open(folder, settings), Problem);
    EXPECT_THROW(MovieWriter::open(folder / "odd.mp4", {.width = 191, .height = 128}), Problem);
    EXPECT_THROW(MovieWriter::open(folder / "none.mp4", {.width = 0, .height = 128}), Problem);
    EXPECT_THROW(MovieWriter::open("/proc/movie.mp4", settings), Problem);
    EXPECT_EQ(entries(folder), 0u);
}

// A limit on the size of files stands in for a full disk.
TEST(MovieWriter, aFullDiskLeavesTheOldMovieAndNothingElse) {
    const auto folder = emptyFolder("full");
    const auto path = folder / "movie.mp4";
    std::ofstream(path) << "the old one";
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    auto* const handler = std::signal(SIGXFSZ, SIG_IGN);
    const MovieSettings settings{.width = width, .height = height};
    MovieWriter whole = MovieWriter::open(path, settings);
    write(whole);
    whole.finish();
    const rlim_t size = std::filesystem::file_size(path);
    std::ofstream(path) << "the old one";
    for (const rlim_t most : {rlim_t{100}, size / 2, size - 1}) {
        const rlimit limit{most, before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
        std::string problem;
        try {
            MovieWriter writer = MovieWriter::open(path, settings);
            write(writer);
            writer.finish();
        } catch (const Problem& caught) {
            problem = caught.message();
        }
        setrlimit(RLIMIT_FSIZE, &before);
        EXPECT_NE(problem.find("“movie.mp4” could not be written"), std::string::npos)
            << most << ": " << problem;
        EXPECT_TRUE(text(path) == "the old one");
        EXPECT_EQ(entries(folder), 1u);
    }
    std::signal(SIGXFSZ, handler);
}
