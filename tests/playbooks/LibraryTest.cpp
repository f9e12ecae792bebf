#include "platform/store/SettingsStore.h"
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
    for (const char* broken : {"Playbooks/Broken.mbplay", "Playbooks/Worse.mbplay"}) {
        fs::create_directories(folder / broken);
        std::ofstream(folder / broken / "playbook.json") << "{";
    }
    fs::create_directories(folder / "Playbooks/Mine.mbplay");
    std::ofstream(folder / "Playbooks/Mine.mbplay/playbook.json") << R"({"name": "Mine", "layers": []})";
    const auto library = Playbooks::library();
    ASSERT_EQ(library.size(), 26u);
    EXPECT_EQ(library[0].id(), "Mine");
    EXPECT_EQ(library[0].version(), 1);
    ASSERT_EQ(Playbooks::leftOut().size(), 2U);
    EXPECT_EQ(Playbooks::leftOut()[0].folder, folder / "Playbooks/Broken.mbplay");
    EXPECT_NE(Playbooks::leftOut()[0].reason, "");
    for (const char* name : {"Hits", "airs"}) fs::create_directories(Library::sounds() / name);
    for (const char* name :
         {"10.wav", "2.MP3", "note.txt", ".3.wav", "Hits/boom.flac", "Hits/.4.mp3", "airs/low.wav"})
        std::ofstream(Library::sounds() / name);
    std::vector<std::string> names;
    for (const auto& sound : Library::audioFiles(Library::sounds()))
        names.push_back(sound.folder + ":" + sound.file.filename().string());
    EXPECT_THAT(names, ElementsAre(":2.MP3", ":10.wav", "airs:low.wav", "Hits:boom.flac"));
}

TEST_F(LibraryFolder, liesWhereTheSettingsSay) {
    Library::setOverride({});
    const Environment home("HOME", folder.path);
    EXPECT_EQ(Library::folder(), folder / "Movies/Murbo");
    auto& stored = SettingsStore::standard();
    stored.set("libraryFolder", (folder / "mine").string());
    stored.set("soundsFolder", (folder / "hits").string());
    stored.set("musicFolder", "");
    EXPECT_EQ(Library::playbooks(), folder / "mine/Playbooks");
    EXPECT_EQ(Library::sounds(), folder / "hits");
    EXPECT_EQ(Library::music(), folder / "mine/Music");
    EXPECT_THAT(Library::styles(), IsEmpty());
    const std::vector<CaptionStyle> styles{{.id = "mine", .size = 40}};
    Library::save(styles);
    EXPECT_EQ(Library::styles(), styles);
    for (const char* key : {"libraryFolder", "soundsFolder", "musicFolder"}) stored.remove(key);
}

}
}
