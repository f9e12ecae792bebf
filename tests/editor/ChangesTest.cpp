#include "app/editor/commands/Changes.h"
#include "core/playbooks/Playbooks.h"
#include "tests/ProblemOf.h"
#include "tests/editor/TwoCuts.h"

using namespace murbo;

TEST(Changes, findAVideoByItsIdAndTheOpenOne) {
    TwoCuts lines;
    auto project = lines.project();
    project.videos.edit().push_back({.number = 2, .title = "Two"});
    EXPECT_EQ(Changes::video(project, project.videos[1].id), &project.videos[1]);
    EXPECT_EQ(Changes::video(project, UUID::make()), nullptr);
    EXPECT_EQ(&Changes::openVideo(lines.editor(), project), &project.videos[0]);
    project.videos = {};
    EXPECT_EQ(problemOf([&] { Changes::openVideo(lines.editor(), project); }), "No video is open.");
    EXPECT_EQ(lines.video().title, "One") << "the session's own is another";
}

TEST(Changes, pinAPlaybookWhereThereIsAPackageThatTakesIt) {
    TwoCuts lines;
    const auto book = *Playbooks::find("stock.sticker");
    Changes::pin(lines.editor(), book);
    EXPECT_TRUE(Playbooks::copy("stock.sticker", 3, lines.package()));
    const auto full = lines.folder.file("full");
    for (const auto& package : {std::optional(full), std::optional<std::filesystem::path>()}) {
        const Editor elsewhere(Lines::made(), {}, package, [](const Project&) {});
        EXPECT_NO_THROW(Changes::pin(elsewhere, book));
    }
}
