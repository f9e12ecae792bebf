#include "core/model/Project.h"
#include "core/playbooks/Library.h"
#include "core/playbooks/Playbooks.h"
#include "core/render/export/OwnFiles.h"
#include "tests/ProblemOf.h"
#include "tests/TemporaryFolder.h"

#include <fstream>

#include <fmt/format.h>
#include <gtest/gtest.h>

namespace murbo {
namespace {

struct Owned {
    TemporaryFolder folder;
    Project project;
    Video video;

    Owned() {
        Library::setOverride(folder / "library");
        Playbooks::dropListing();
        project.sources.edit().push_back({.path = folder / "footage.mp4", .length = 10});
        video.cuts.edit().push_back({.source = project.sources[0].id, .start = 0, .end = 10});
        video.look.emplace();
    }
    ~Owned() {
        Library::setOverride({});
        Playbooks::dropListing();
    }

    void pin(const std::string& id, const std::string& json) {
        folder.file(fmt::format("a.mbproj/playbooks/{}@1.mbplay/playbook.json", id), json);
    }
    Overlay& overlay(const std::string& playbook, double at = 1) {
        return video.look->overlays.edit().emplace_back(
            Overlay{.playbook = playbook, .source = project.sources[0].id, .at = at, .length = 1});
    }
    OwnFiles files() const {
        return OwnFiles(project, video, Plan::video(video, project, "", folder / "a.mbproj"));
    }
};

bool refuses(const OwnFiles& own, const std::filesystem::path& place) {
    return !problemOf([&] { own.refuse(place); }).empty();
}

TEST(OwnFiles, nothingThatAVideoIsMadeOfIsWrittenOver) {
    Owned owned;
    const auto& folder = owned.folder;
    const auto path = [&](const char* name) { return (folder / name).string(); };
    for (const char* name : {"footage.mp4", "song.mp3", "muted.mp3", "own.mp4", "picture.png", "literal.png",
                             "joined/a b.webm", "default.mp4", "boo.wav", "other.png", "panel.png",
                             "shot.png", "free.mp4", "library/Playbooks/mine.mbplay/playbook.json"})
        folder.file(name, "{}");
    std::filesystem::create_symlink(folder / "own.mp4", folder / "link.mp4");
    std::filesystem::create_symlink(folder / "linked", folder / "dangling.mp4");
    std::filesystem::create_hard_link(folder / "picture.png", folder / "hard.png");
    std::filesystem::create_directory_symlink(folder / "a.mbproj", folder / "door");

    auto& look = *owned.video.look;
    look.music.edit().push_back({.file = path("song.mp3")});
    look.sounds.edit().push_back({.file = path("muted.mp3"), .muted = true});
    owned.video.cuts.edit().push_back(
        Cut::generated("stock.generator.picture", 1, Values{{"media", path("own.mp4")}}, 1));
    owned.pin("files",
              fmt::format(R"({{"name": "a", "layers": [{{"image": "{}"}}, {{"video": "{}/$name.webm"}},
        {{"slot": "$clip"}}, {{"sound": "$boo"}}], "params": {{"name": {{"type": "text", "value": "c"}},
        "clip": {{"type": "media", "value": "{}"}}, "boo": {{"type": "media"}}}}}})",
                          path("literal.png"), path("joined"), path("default.mp4")));
    owned.overlay("files").values = Values{{"name", "a b"}, {"boo", path("boo.wav")}};
    owned.pin("panel", R"({"name": "p", "kind": "layout", "layers": [{"image": "$folder/panel.png"}],
        "params": {"folder": {"type": "text"}}})");
    look.shots.edit().push_back({.source = owned.project.sources[0].id,
                                 .at = 2,
                                 .playbook = "panel",
                                 .values = Values{{"folder", path("")}}});
    look.shots.edit()[0].version = 1;
    look.shots.edit().push_back(
        {.source = owned.project.sources[0].id, .at = 99, .values = Values{{"still", path("shot.png")}}});
    owned.overlay("stock.sticker", 99).values = Values{{"picture", path("picture.png")}}; // shown by no cut
    Video other;
    other.cuts.edit().push_back(
        Cut::generated("stock.generator.picture", 1, Values{{"media", path("other.png")}}, 1));
    owned.project.videos.edit().push_back(other);

    const auto own = owned.files();
    for (const char* name :
         {"footage.mp4", "song.mp3", "muted.mp3", "own.mp4", "link.mp4", "picture.png", "hard.png",
          "literal.png", "joined/a b.webm", "default.mp4", "boo.wav", "panel.png", "other.png",
          "joined/../own.mp4", "a.mbproj/project.json", "a.mbproj/new.mp4", "door/media/new.mp4",
          "a.mbproj/playbooks/files@1.mbplay/assets/new.mp4", "library/Playbooks/mine.mbplay/new.mp4"})
        EXPECT_TRUE(refuses(own, folder / name)) << name;
    EXPECT_TRUE(refuses(own, folder / "shot.png")) << "a shot names it";
    for (const char* name : {"free.mp4", "new.mp4", "dangling.mp4", "a.mbproj2/new.mp4", "joined/c.webm",
                             "nowhere/new.mp4", "library/new.mp4"})
        EXPECT_FALSE(refuses(own, folder / name)) << name;
}

TEST(OwnFiles, aHostileProjectIsLookedThroughInSoManySteps) {
    Owned owned;
    owned.folder.file("own.mp4");
    std::string layers = fmt::format(R"({{"image": "{}"}})", (owned.folder / "own.mp4").string());
    for (int each = 0; each < 10'000; ++each) layers += fmt::format(R"(,{{"image": "$a/{}/$b"}})", each);
    owned.pin("large", R"({"name": "Large", "params": {"a": {"type": "text", "value": "/x"},
        "b": {"type": "text"}}, "layers": [)" +
                           layers + "]}");
    for (int each = 0; each < 20'000; ++each) // with each layer's name this would not end
        owned.overlay("large").values = Values{{"b", std::to_string(each)}};
    const Plan plan = Plan::video(owned.video, owned.project, "", owned.folder / "a.mbproj");
    const OwnFiles own(owned.project, owned.video, plan);
    EXPECT_TRUE(refuses(own, owned.folder / "own.mp4"));
}

}
}
