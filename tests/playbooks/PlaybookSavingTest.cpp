#include "platform/base/Problem.h"
#include "tests/playbooks/OwnersLibrary.h"

#include <fstream>
#include <thread>

#include <gmock/gmock.h>

namespace fs = std::filesystem;
using testing::HasSubstr;

namespace murbo {
namespace {

class PlaybookSaving : public OwnersLibrary {};

TEST_F(PlaybookSaving, whatIsHandedOverKeepsItsId) {
    const auto given = folder / "given" / "Star.mbplay";
    Files::createFolder(given);
    const auto json = [&](const char* id, const char* text) {
        Files::writeWhole(given / "playbook.json",
                          std::string(R"({"id": ")") + id +
                              R"(", "version": 4, "name": "Star", "layers": [{"text": ")" + text + R"("}]})");
    };
    json("star-1", "Hi");
    folder.file("given/Star.mbplay/assets/deep/a.png", "picture");
    fs::create_symlink("/etc/passwd", given / "assets/out.png");
    const auto first = Playbooks::bringIn(given);
    EXPECT_EQ(first.id() + " " + std::to_string(first.version()), "star-1 4");
    EXPECT_TRUE(fs::exists(*first.folder / "assets/deep/a.png"));
    EXPECT_FALSE(fs::exists(fs::symlink_status(*first.folder / "assets/out.png")));
    EXPECT_EQ(Playbooks::bringIn(given).version(), 4) << "the same again is none";
    json("star-1", "Ho");
    EXPECT_EQ(Playbooks::bringIn(given).version(), 5);
    EXPECT_EQ(Playbooks::bringIn(given / "playbook.json").version(), 5) << "the JSON alone";

    json("stock.hook", "Other");
    EXPECT_EQ(Playbooks::bringIn(given).id().size(), 36U) << "the stock's are the stock's";
    json("../../x", "Other");
    EXPECT_THROW(Playbooks::bringIn(given), Problem);
    const auto count = Playbooks::library().size();
    Files::writeWhole(given / "playbook.json", R"({"name": "Star", "layers": [{"text": "Hi", "y": "up"}]})");
    try {
        Playbooks::bringIn(given);
        ADD_FAILURE();
    } catch (const Problem& problem) {
        EXPECT_THAT(problem.message(), HasSubstr("“Star.mbplay” did not come into the library. "));
    }
    EXPECT_THROW(Playbooks::bringIn(folder / "nowhere.mbplay"), Problem);
    Playbooks::dropListing();
    EXPECT_EQ(Playbooks::library().size(), count);
}

TEST_F(PlaybookSaving, keepsEveryVersionOfAPlaybook) {
    auto first = Playbooks::write(named("Star"), {{asset("a.png"), "a.png"}}, "Claude");
    EXPECT_EQ(first.version(), 1);
    EXPECT_EQ(first.folder, folder / "Playbooks" / "Star.mbplay");
    EXPECT_TRUE(fs::exists(*first.folder / "assets/a.png"));

    Playbook next = first.playbook;
    next.about = "Shines.";
    next.layers[0].text = std::string(60, 'x');
    const auto second = Playbooks::write(next, {{asset("b.png"), "deep/b.png"}}, "me");
    EXPECT_EQ(second.version(), 2);
    EXPECT_EQ(second.folder, first.folder);
    EXPECT_TRUE(fs::exists(*second.folder / "assets/a.png"));
    EXPECT_EQ(Playbook::decode(read(*second.folder / "versions/1.json")), first.playbook);
    const auto log = read(*second.folder / "changes.jsonl");
    EXPECT_THAT(log, HasSubstr(R"("by":"Claude","changes":[])"));
    EXPECT_THAT(log, HasSubstr(R"("changes":["about: added “Shines.”","layers[0].text: “Hi” → “)" +
                               std::string(40, 'x') + R"(…”","added assets/deep/b.png"])"));
    EXPECT_EQ(Playbooks::find(first.id())->version(), 2);
    EXPECT_FALSE(Playbooks::book(first.id(), 1, std::nullopt));
}

TEST_F(PlaybookSaving, aSaveThatFailsLeavesEverythingAsItWas) {
    const auto book = Playbooks::write(named("Star"), {}, "me");
    const auto before = read(*book.folder / "playbook.json");
    Playbook broken = book.playbook;
    broken.layers[0].text.reset();
    broken.layers[0].image = "assets/none.png";
    EXPECT_THROW(Playbooks::write(broken, {}, "me"), Problem);
    for (const char* name : {"../out.png", "", "a/../../out.png", "."})
        EXPECT_THROW(Playbooks::write(book.playbook, {{asset("c.png"), name}}, "me"), Problem) << name;
    EXPECT_EQ(read(*book.folder / "playbook.json"), before);
    EXPECT_FALSE(fs::exists(folder / "Playbooks" / "out.png"));
    const auto left = std::distance(fs::directory_iterator(folder / "Playbooks"), {});
    EXPECT_EQ(left, 1);
}

TEST_F(PlaybookSaving, savesUnderLongNamesAndBehindLinks) {
    std::string name;
    for (int at = 0; at < 90; ++at) name += "ก";
    const auto book = Playbooks::write(named(name), {}, "me");
    EXPECT_EQ(book.playbook.name, name);

    fs::create_directories(folder / "elsewhere");
    fs::rename(*book.folder, folder / "elsewhere/One.mbplay");
    fs::create_symlink(folder / "elsewhere/One.mbplay", folder / "Playbooks/One.mbplay");
    Playbooks::dropListing();
    EXPECT_EQ(Playbooks::write(book.playbook, {}, "me").version(), 2);
    EXPECT_TRUE(fs::is_symlink(folder / "Playbooks/One.mbplay"));

    Playbook last = book.playbook;
    last.version = std::numeric_limits<std::int64_t>::max();
    std::ofstream(folder / "elsewhere/One.mbplay/playbook.json") << Playbooks::encoded(last);
    Playbooks::dropListing();
    EXPECT_THROW(Playbooks::write(last, {}, "me"), Problem);
}

TEST_F(PlaybookSaving, aSaveTakesAwayWhatAKilledOneLeft) {
    const auto left = [&](const char* name, std::chrono::minutes age) {
        fs::create_directories(Library::playbooks() / name / "assets");
        fs::last_write_time(Library::playbooks() / name, fs::file_time_type::clock::now() - age);
        return Library::playbooks() / name;
    };
    const auto killed = left(".saving-killed", std::chrono::minutes(61));
    const auto working = left(".saving-working", std::chrono::minutes(5));
    const auto owners = left("Old and mine", std::chrono::minutes(600));
    Playbooks::write(named("New"), {}, "test");
    EXPECT_FALSE(fs::exists(killed));
    EXPECT_TRUE(fs::exists(working) && fs::exists(owners));
}

TEST_F(PlaybookSaving, countsOnFromTheVersionThatAnotherProgramSaved) {
    const auto first = Playbooks::write(named("Star"), {}, "me");
    Playbooks::library(); // the listing is fresh now
    Playbook theirs = first.playbook;
    theirs.version = 2;
    theirs.about = "theirs";
    folder.file(first.folder->lexically_relative(folder.path) / "playbook.json", Playbooks::encoded(theirs));
    EXPECT_EQ(Playbooks::write(first.playbook, {}, "me").version(), 3);
    EXPECT_EQ(Playbook::decode(read(*first.folder / "versions/2.json")).about, "theirs");
}

TEST_F(PlaybookSaving, savesOneAfterTheOther) {
    const auto first = Playbooks::write(named("Star"), {{asset("a.png"), "a.png"}}, "me");
    std::vector<std::thread> savers;
    for (int saver = 0; saver < 4; ++saver)
        savers.emplace_back([&] {
            for (int time = 0; time < 5; ++time) Playbooks::write(first.playbook, {}, "me");
        });
    for (auto& saver : savers) saver.join();
    EXPECT_EQ(Playbooks::load(*first.folder).version(), 21);
    for (int version = 1; version < 21; ++version)
        EXPECT_TRUE(fs::exists(*first.folder / "versions" / (std::to_string(version) + ".json"))) << version;
    EXPECT_TRUE(fs::exists(*first.folder / "assets/a.png"));
}

}
}
