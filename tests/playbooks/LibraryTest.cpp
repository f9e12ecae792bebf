#include "core/playbooks/Library.h"
#include "core/playbooks/Playbooks.h"
#include "core/playbooks/Stock.h"
#include "platform/base/Files.h"
#include "platform/base/Problem.h"

#include <fstream>

#include <gmock/gmock.h>

using namespace murbo;
namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

class OwnersLibrary : public testing::Test {
protected:
    void SetUp() override {
        fs::create_directories(folder);
        Library::setOverride(folder);
        Playbooks::dropListing();
    }
    void TearDown() override {
        Library::setOverride(std::nullopt);
        fs::remove_all(folder);
    }

    fs::path asset(const std::string& name) const {
        std::ofstream(folder / name) << "picture " << name;
        return folder / name;
    }
    std::string read(const fs::path& file) const { return Files::readWhole(file, 1 << 20); }

    fs::path folder = fs::temp_directory_path() / ("library-" + UUID::make().text());
};

Playbook named(const std::string& name) {
    return Playbook::decode(R"({"name": ")" + name + R"(", "layers": [{"text": "Hi"}]})");
}

}

TEST(Stock, readsWholeAndInItsOrder) {
    const auto& books = Stock::books();
    ASSERT_EQ(books.size(), 25u);
    EXPECT_EQ(books.front().id(), "stock.layout.wide");
    EXPECT_EQ(books.back().id(), "stock.replay");
    for (const auto& book : books) {
        EXPECT_FALSE(book.folder);
        // What a layer asks for by number has a value before anybody fills it in.
        const auto values = book.values(std::nullopt);
        for (const auto& layer : book.playbook.layers)
            for (const auto* num : {&layer.x, &layer.y, &layer.w, &layer.h, &layer.size, &layer.rotation})
                if (*num) EXPECT_TRUE((*num)->value(values)) << book.id();
    }
}

TEST_F(OwnersLibrary, keepsEveryVersionOfAPlaybook) {
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

TEST_F(OwnersLibrary, tellsNamesakesAndTheStockApart) {
    const auto one = Playbooks::write(named("A/B"), {}, "me");
    const auto two = Playbooks::write(named("A/B"), {}, "me");
    EXPECT_EQ(one.folder->filename(), "A-B.mbplay");
    EXPECT_EQ(two.folder->filename(), "A-B 2.mbplay");
    EXPECT_NE(one.id(), two.id());

    const auto mine = Playbooks::write(Playbooks::find("stock.hook")->playbook, {}, "me");
    EXPECT_EQ(mine.version(), 1);
    EXPECT_FALSE(mine.id().starts_with("stock."));
    EXPECT_FALSE(Playbooks::find("stock.hook")->folder);
    EXPECT_EQ(Playbooks::book("stock.hook", 1, std::nullopt)->version(), 2);
}

TEST_F(OwnersLibrary, aSaveThatFailsLeavesEverythingAsItWas) {
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

TEST_F(OwnersLibrary, aProjectPlaysTheVersionThatItPinned) {
    const auto project = folder / "p.mbproj";
    const auto first = Playbooks::write(named("Star"), {{asset("a.png"), "a.png"}}, "me");
    fs::create_symlink("/etc/passwd", *first.folder / "assets/out.png");
    const auto pinned = Playbooks::copy(first, project);
    EXPECT_EQ(pinned.folder, project / "playbooks" / (first.id() + "@1.mbplay"));
    EXPECT_TRUE(fs::exists(*pinned.folder / "assets/a.png"));
    EXPECT_FALSE(fs::exists(*pinned.folder / "assets/out.png"));
    Playbook next = first.playbook;
    next.about = "new";
    Playbooks::write(next, {}, "me");
    EXPECT_EQ(Playbooks::book(first.id(), 1, project)->playbook, first.playbook);
    EXPECT_EQ(Playbooks::book(first.id(), 2, project)->version(), 2);
    EXPECT_FALSE(Playbooks::copy("../p", 1, project));

    EXPECT_TRUE(pinned.file("assets/a.png"));
    EXPECT_FALSE(pinned.file("../x"));
    fs::create_symlink("/etc", *pinned.folder / "assets/link");
    EXPECT_FALSE(pinned.file("assets/link/passwd"));
}

TEST_F(OwnersLibrary, savesUnderLongNamesAndBehindLinks) {
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

TEST_F(OwnersLibrary, passesOverWhatItCannotRead) {
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
    for (const char* name : {"10.wav", "2.MP3", "note.txt", "Hits/boom.flac"})
        std::ofstream(Library::sounds() / name);
    std::vector<std::string> names;
    for (const auto& sound : Library::audioFiles(Library::sounds()))
        names.push_back(sound.folder + ":" + sound.file.filename().string());
    EXPECT_THAT(names, ElementsAre(":2.MP3", ":10.wav", "Hits:boom.flac"));
}

TEST_F(OwnersLibrary, aSaveTakesAwayWhatAKilledOneLeft) {
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
