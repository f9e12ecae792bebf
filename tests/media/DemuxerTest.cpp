#include "platform/media/MediaFile.h"
#include "tests/ProblemOf.h"
#include "tests/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

using namespace murbo;

namespace {

std::string refusal(const std::filesystem::path& path) {
    return problemOf([&] { MediaFile::facts(path); });
}

}

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
        {folder.file("list.mp4", "ffconcat version 1.0\nfile '/etc/passwd'\n"),
         "“list.mp4” is no movie or sound file that can be read."},
        {folder.file("list.ts", "#EXTM3U\n#EXT-X-TARGETDURATION:5\n#EXTINF:5,\n/etc/passwd\n"),
         "“list.ts” is no movie or sound file that can be read."},
    };
    for (const auto& [path, words] : cases) EXPECT_EQ(refusal(path), words);
}
