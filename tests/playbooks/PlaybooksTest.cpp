#include "tests/ProblemOf.h"
#include "tests/playbooks/OwnersLibrary.h"

#include <gmock/gmock.h>

namespace fs = std::filesystem;

namespace murbo {
namespace {

class PlaybooksInThreePlaces : public OwnersLibrary {};

TEST_F(PlaybooksInThreePlaces, tellsNamesakesAndTheStockApart) {
    const auto one = Playbooks::write(named("A/B"), {}, "me");
    const auto two = Playbooks::write(named("A/B"), {}, "me");
    EXPECT_EQ(one.folder->filename(), "A-B.mbplay");
    EXPECT_EQ(two.folder->filename(), "A-B 2.mbplay");
    EXPECT_EQ(Playbooks::write(named("Act 1: go"), {}, "me").folder->filename(), "Act 1- go.mbplay");
    EXPECT_NE(one.id(), two.id());

    const auto mine = Playbooks::write(Playbooks::find("stock.hook")->playbook, {}, "me");
    EXPECT_EQ(mine.version(), 1);
    EXPECT_FALSE(mine.id().starts_with("stock."));
    EXPECT_FALSE(Playbooks::find("stock.hook")->folder);
    EXPECT_EQ(Playbooks::book("stock.hook", 1, std::nullopt)->version(), 2);
}

TEST_F(PlaybooksInThreePlaces, aProjectPlaysTheVersionThatItPinned) {
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
    for (const char* id : {"../p", "a/b", ".."}) {
        EXPECT_FALSE(Playbooks::copy(id, 1, project));
        next.id = id;
        EXPECT_EQ(problemOf([&] {
                      Playbooks::copy(Book{next, {}}, project);
                  }),
                  "“Star” has an id that can't be the name of a folder.");
    }

    EXPECT_TRUE(pinned.file("assets/a.png"));
    EXPECT_FALSE(pinned.file("../x"));
    fs::create_symlink("/etc", *pinned.folder / "assets/link");
    EXPECT_FALSE(pinned.file("assets/link/passwd"));
}

}
}
