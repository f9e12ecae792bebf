#include "platform/media/FrameReader.h"
#include "platform/media/MediaFile.h"
#include "tests/media/Made.h"

#include <gtest/gtest.h>

using namespace murbo;
using namespace murbo::made;

namespace {

std::filesystem::path cutToHalf(const std::filesystem::path& path) {
    const auto cut = path.parent_path() / ("half-" + path.filename().string());
    const std::string bytes = contentsOf(path);
    std::ofstream(cut, std::ios::binary) << bytes.substr(0, bytes.size() / 2);
    return cut;
}

double lengthOf(const std::filesystem::path& path) {
    return MediaFile::facts(path).length;
}

// The file with a stretch of bytes replaced, wherever it stands, by another as long.
std::filesystem::path patched(const std::filesystem::path& path, const std::string& from,
                              const std::string& to) {
    std::string bytes = contentsOf(path);
    EXPECT_NE(bytes.find(from), bytes.npos) << from;
    for (std::size_t at = 0; (at = bytes.find(from, at)) != bytes.npos; at += to.size())
        bytes.replace(at, to.size(), to);
    const auto changed = path.parent_path() / ("patched-" + path.filename().string());
    std::ofstream(changed, std::ios::binary) << bytes;
    return changed;
}

// A Matroska file's length as its header holds it: thousandths of a second, a big-endian double.
std::string bigEndian(double value) {
    auto bits = std::bit_cast<std::uint64_t>(value);
    std::string bytes(8, 0);
    for (int index = 7; index >= 0; --index, bits >>= 8)
        bytes[static_cast<std::size_t>(index)] = static_cast<char>(bits);
    return bytes;
}

}

TEST(FileEnd, findsTheEndWhereTheHeaderDoesNotTell) {
    MURBO_NEEDS_FFMPEG();
    const std::string noisy =
        "-f lavfi -i 'nullsrc=s=320x180:r=30:d=4,geq=random(1)*255:128:128' -g 30 " + x264;
    for (const char* name : {"noisy.mkv", "noisy.ts", "front.mp4"}) {
        const auto half = cutToHalf(
            made::file(name, noisy + (std::string_view(name) == "front.mp4" ? "-movflags faststart" : "")));
        const double length = MediaFile::facts(half).length;
        EXPECT_NEAR(length, 2, 0.25) << name;
        FrameReader reader = FrameReader::open(half);
        const auto last = reader.at(1000);
        ASSERT_TRUE(last) << name;
        EXPECT_NEAR(last->time, length, 0.15) << name;
    }
}

TEST(FileEnd, isAfterTheLastPictureWhateverTheHeaderSays) {
    MURBO_NEEDS_FFMPEG();
    // As written by one that names the start of the last picture.
    const auto whole = made::file("whole.mkv", "-f lavfi -i testsrc2=s=320x180:r=25:d=2 " + x264);
    ASSERT_NEAR(lengthOf(whole), 2, 0.001);
    const auto other = patched(patched(whole, "Lavf", "Mine"), bigEndian(2000), bigEndian(1960));
    EXPECT_NEAR(lengthOf(other), 2, 0.001);
}

TEST(FileEnd, doesNotCountSoundThatCannotBeDecoded) {
    MURBO_NEEDS_FFMPEG();
    const auto both =
        made::file("longer-sound.mp4",
                   "-f lavfi -i testsrc2=s=64x36:r=25:d=1 -f lavfi -i sine=d=1.5 " + x264 + "-c:a alac");
    ASSERT_NEAR(lengthOf(both), 1.5, 0.03);
    EXPECT_NEAR(lengthOf(patched(both, "alac", "zzzz")), 1, 0.001);
}
