#include "platform/media/Demuxer.h"
#include "platform/media/MediaFile.h"
#include "tests/ProblemOf.h"
#include "tests/TemporaryFolder.h"
#include "tests/media/Made.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

using namespace murbo;

TEST(Demuxer, refusesWhatIsNoMedia) {
    const TemporaryFolder folder;
    std::string noise(200000, 0);
    for (std::size_t index = 0; index < noise.size(); ++index)
        noise[index] = static_cast<char>(index * index * 2654435761u >> 13);
    ASSERT_EQ(mkfifo((folder / "pipe.mp4").c_str(), 0600), 0);
    const std::pair<std::filesystem::path, std::string> cases[] = {
        {folder / "missing.mp4", "There is no file “missing.mp4”."},
        {folder.path, "“" + folder.path.filename().string() + "” is not a file."},
        {folder / "pipe.mp4", "“pipe.mp4” is not a file."},
        {"/dev/zero", "“zero” is not a file."},
        {folder.file("empty.mp4", ""), "“empty.mp4” is no movie or sound file that can be read."},
        {folder.file("text.mov", "Hello there.\n"), "“text.mov” is no movie or sound file that can be read."},
        {folder.file("noise.mkv", noise), "“noise.mkv” is no movie or sound file that can be read."},
        {folder.file("wide.mov", std::string("\0\0\0\x08wide\0\0\1\0mdat", 16) + std::string(400, 'x')),
         "“wide.mov” has no index: the recording or the copying of it was cut off. It cannot be read."},
        {folder.file("data.mov", std::string("\0\0\1\0mdat", 8) + std::string(400, 'x')),
         "“data.mov” has no index: the recording or the copying of it was cut off. It cannot be read."},
        {folder.file("list.mp4", "ffconcat version 1.0\nfile '/etc/passwd'\n"),
         "“list.mp4” is no movie or sound file that can be read."},
        {folder.file("list.ts", "#EXTM3U\n#EXT-X-TARGETDURATION:5\n#EXTINF:5,\n/etc/passwd\n"),
         "“list.ts” is no movie or sound file that can be read."},
    };
    for (const auto& [path, words] : cases)
        EXPECT_EQ(problemOf([&file = path] { MediaFile::facts(file); }), words);
}

TEST(Demuxer, goesToTheBeginningFromWhereverItStands) {
    MURBO_NEEDS_FFMPEG();
    for (const char* name : {"positions.mp4", "positions.mkv", "positions.ts"}) {
        Demuxer input(
            made::file(name,
                       "-f lavfi -i testsrc=s=64x36:r=25:d=4 -f lavfi -i sine=d=4 -g 25 -c:v libx264 "
                       "-c:a aac"));
        const auto* stream = input.picture();
        ASSERT_TRUE(stream) << name;
        input.readOnly(stream);
        const auto packet = ffmpeg::makePacket();
        const auto next = [&] {
            EXPECT_TRUE(input.read(packet.get())) << name;
            EXPECT_EQ(packet->stream_index, stream->index) << name;
            return input.seconds(packet->pts, stream);
        };
        EXPECT_NEAR(next(), 0, 0.05) << name;
        EXPECT_TRUE(input.rewind());
        EXPECT_NEAR(next(), 0, 0.05) << name;
        EXPECT_TRUE(input.rewind() && input.seek(stream, 3.5) && input.rewind()) << name;
        EXPECT_NEAR(next(), 0, 0.05) << name << ": sought, and nothing read there";
        EXPECT_TRUE(input.seek(stream, 2.5)) << name;
        EXPECT_GT(next(), 1.5) << name;
        EXPECT_TRUE(input.rewind() && input.rewind());
        EXPECT_NEAR(next(), 0, 0.05) << name;
        while (input.read(packet.get())) {
        }
        EXPECT_TRUE(input.isAtEnd());
        EXPECT_FALSE(input.isTooSlow());
        EXPECT_TRUE(input.rewind());
        EXPECT_NEAR(next(), 0, 0.05) << name << ": from the end";
    }
}
