#include "tests/playbooks/OwnersLibrary.h"

#include <fstream>

#include <gmock/gmock.h>

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

namespace murbo {
namespace {

class LibraryFolder : public OwnersLibrary {};

TEST_F(LibraryFolder, passesOverWhatItCannotRead) {
    fs::create_directories(folder / "Playbooks/Broken.mbplay");
    std::ofstream(folder / "Playbooks/Broken.mbplay/playbook.json") << "{";
    fs::create_directories(folder / "Playbooks/Mine.mbplay");
    std::ofstream(folder / "Playbooks/Mine.mbplay/playbook.json") << R"({"name": "Mine", "layers": []})";
    const auto library = Playbooks::library();
    ASSERT_EQ(library.size(), 26u);
    EXPECT_EQ(library[0].id(), "Mine");
    EXPECT_EQ(library[0].version(), 1);
    EXPECT_THAT(Library::styles(), IsEmpty());
    Library::save({{.id = "mine", .size = 40}});
    EXPECT_EQ(Library::styles().size(), 1u);
    fs::create_directories(Library::sounds() / "Hits");
    for (const char* name : {"10.wav", "2.MP3", "note.txt", ".3.wav", "Hits/boom.flac", "Hits/.4.mp3"})
        std::ofstream(Library::sounds() / name);
    std::vector<std::string> names;
    for (const auto& sound : Library::audioFiles(Library::sounds()))
        names.push_back(sound.folder + ":" + sound.file.filename().string());
    EXPECT_THAT(names, ElementsAre(":2.MP3", ":10.wav", "Hits:boom.flac"));
}

}
}
