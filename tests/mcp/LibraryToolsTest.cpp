#include "core/mcp/LibraryTools.h"
#include "core/playbooks/Library.h"
#include "core/playbooks/Playbooks.h"
#include "tests/ProblemOf.h"
#include "tests/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

using namespace murbo;
using nlohmann::json;
using testing::HasSubstr;

namespace {

/// A library of its own, with sounds at its top and in a folder.
class LibraryToolsTest : public testing::Test {
protected:
    LibraryToolsTest() {
        Library::setOverride(folder.path);
        Playbooks::dropListing();
        for (const auto* sound : {"boom.wav", "Hits/Bang.wav", "Hits/snare.mp3"}) put(sound);
    }
    ~LibraryToolsTest() override {
        Library::setOverride(std::nullopt);
        Playbooks::dropListing();
    }
    void put(const std::string& sound) const { folder.file(Library::sounds().filename() / sound); }

    TemporaryFolder folder;
};

}

TEST_F(LibraryToolsTest, soundsAreNamedByFolderAndFile) {
    const auto all = LibraryTools::listSounds(json::object());
    EXPECT_THAT(all, HasSubstr("boom.wav"));
    EXPECT_EQ(LibraryTools::listSounds({{"search", " HITS/"}}), "Hits/Bang.wav\nHits/snare.mp3");
    EXPECT_EQ(LibraryTools::listSounds({{"search", "BANG"}}), "Hits/Bang.wav");
    EXPECT_EQ(LibraryTools::listSounds({{"search", "cow"}}), "No sound's folder or name holds “cow”.");
    for (const auto& [name, file] : LibraryTools::sounds()) EXPECT_EQ(file, Library::sounds() / name);
    std::filesystem::remove_all(Library::sounds());
    EXPECT_EQ(LibraryTools::listSounds({{"search", ""}}), "The sound library is empty.");
    EXPECT_EQ(LibraryTools::listSounds({{"search", "cow"}}), "No sound's folder or name holds “cow”.");
}

TEST_F(LibraryToolsTest, threeHundredSoundsAreListed) {
    for (int number = 100; number < 402; ++number) put("many/x" + std::to_string(number) + ".wav");
    const auto listed = LibraryTools::listSounds({{"search", "many"}});
    EXPECT_EQ(std::count(listed.begin(), listed.end(), '\n'), 300);
    EXPECT_THAT(listed, testing::EndsWith("x399.wav\n… and 2 more; search to narrow it."));
}

TEST_F(LibraryToolsTest, aPlaybookIsWrittenListedAndReadBack) {
    const auto mine = [](const std::string& id) {
        return R"({"name": "My\nGlow", "about": "Shines.", "params": {"size": {"type": "number", "value": "0.5"}},
                "layers": [{"shape": "circle", "w": "$size"}])" +
               id + "}";
    };
    const auto saved = LibraryTools::writePlaybook({{"playbook", mine("")}});
    const std::string before = "Saved “My Glow” to the library as ";
    const std::string after = ", version 1.";
    ASSERT_TRUE(saved.starts_with(before) && saved.ends_with(after)) << saved;
    const auto id = saved.substr(before.size(), saved.size() - before.size() - after.size());
    EXPECT_EQ(LibraryTools::writePlaybook({{"playbook", mine(R"(, "id": ")" + id + "\"")}}),
              before + id + ", version 2.");
    LibraryTools::writePlaybook({{"playbook", R"({"name": "Plain", "layers": []})"}});
    Playbooks::dropListing();
    const auto list = LibraryTools::listPlaybooks();
    EXPECT_THAT(list, testing::StartsWith(id + " “My Glow” (overlay): Shines.; values: size\n"));
    EXPECT_THAT(list, HasSubstr(" “Plain” (overlay)\nstock."));
    EXPECT_THAT(list, HasSubstr("\nstock.layout.wide “Wide” (layout): The whole picture"));
    EXPECT_THAT(list, HasSubstr("; values: soft, y\n"));
    const auto read = json::parse(LibraryTools::readPlaybook({{"playbook", " " + id + " "}}));
    EXPECT_EQ(read["version"], 2);
    EXPECT_EQ(read["layers"], json::parse(mine(""))["layers"]);
}

TEST_F(LibraryToolsTest, whatIsNoPlaybookIsSaid) {
    const auto problem = [](auto tool, const json& arguments) { return problemOf([&] { tool(arguments); }); };
    EXPECT_EQ(problem(LibraryTools::readPlaybook, {{"playbook", "x"}}),
              "There is no playbook x; list_playbooks names them.");
    EXPECT_EQ(problem(LibraryTools::readPlaybook, json::object()),
              "There is no playbook (nothing); list_playbooks names them.");
    EXPECT_EQ(problem(LibraryTools::writePlaybook, {{"playbook", " "}}), "Send the playbook's JSON.");
    EXPECT_EQ(problem(LibraryTools::writePlaybook, {{"playbook", 7}}), "Send the playbook's JSON.");
    EXPECT_NE(problem(LibraryTools::writePlaybook, {{"playbook", "{}"}}), "");
    EXPECT_FALSE(std::filesystem::exists(Library::playbooks()));
}
