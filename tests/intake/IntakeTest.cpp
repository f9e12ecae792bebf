#include "core/intake/Intake.h"
#include "tests/Approved.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <sys/stat.h>

using namespace murbo;
using testing::ElementsAre, testing::IsEmpty;
namespace fs = std::filesystem;

namespace {

/// The movie files found below a folder, by their path in it.
std::vector<std::string> found(const TemporaryFolder& folder) {
    std::vector<std::string> names;
    for (const auto& path : Intake::videos({folder.path}))
        names.push_back(path.lexically_relative(folder.path).string());
    return names;
}

}

TEST(Intake, putsMoviesInTheOrderOfAPersonAndPassesOverTheRest) {
    const TemporaryFolder folder;
    for (const char* name :
         {"clip 10.mp4", "clip 2.MOV", "sub/clip 1.mkv", "b/deep/er/x.webm", "notes.txt", "photo.jpg", "mp4",
          ".hidden.mp4", ".cache/a.mp4", "old.mbproj/media/b.mp4", "Player.app/c.mov", "Lib.FCPBUNDLE/d.mov",
          "กล้อง 9.mp4", "กล้อง 10.mp4", "folder.mp4/inside.mov"})
        folder.file(name);
    for (const char* document :
         {"mbplay",        "bundle",        "framework",     "plugin",       "appdir",       "fcpproject",
          "imovielibrary", "imovieproject", "photoslibrary", "photolibrary", "aplibrary",    "dvdmedia",
          "rtfd",          "pkg",           "logicx",        "band",         "theater",      "tvlibrary",
          "musiclibrary",  "motn",          "key",           "xcodeproj",    "sparsebundle", "dvdproj"})
        folder.file(fmt::format("document.{}/inside.mov", document));
    EXPECT_THAT(found(folder),
                ElementsAre("b/deep/er/x.webm", "clip 2.MOV", "clip 10.mp4", "folder.mp4/inside.mov",
                            "sub/clip 1.mkv", "กล้อง 9.mp4", "กล้อง 10.mp4"));
}

TEST(Intake, takesWhatCamerasAndRecordersWriteAsApproved) {
    const TemporaryFolder folder;
    const std::vector<std::string> names{"camera.m2ts", "camera.mts",   "disc.vob",
                                         "phone.3gp",   "recorder.mkv", "tuner.ts"};
    for (const auto& name : names) folder.file(name);
    EXPECT_THAT(found(folder), testing::ElementsAreArray(names));
    std::string endings;
    for (const auto& ending : Intake::movieEndings()) {
        endings += ending + "\n";
        auto large = ending;
        std::ranges::transform(large, large.begin(), ::toupper);
        EXPECT_TRUE(Intake::isMovie("a." + ending) && Intake::isMovie("A." + large)) << ending;
    }
    expectApproved("intake/approved/endings.txt", endings);
}

TEST(Intake, aSearchIsStoppedAndHasAnEnd) {
    const TemporaryFolder folder;
    for (int at = 0; at < 30; ++at) folder.file(fmt::format("d{}/a.mp4", at));
    std::stop_source stop;
    EXPECT_EQ(Intake::videos({folder.path}, stop.get_token()).size(), 30);
    EXPECT_EQ(Intake::videos({folder.path}, stop.get_token(), 7).size(), 7);
    EXPECT_EQ(Intake::videos({folder / "d1/a.mp4", folder / "d2", folder / "d3/a.mp4"}, {}, 2).size(), 2);
    stop.request_stop();
    EXPECT_THAT(Intake::videos({folder.path, folder / "d1"}, stop.get_token()), IsEmpty());
}

TEST(Intake, followsNoLinkToAFolderButOneToAFile) {
    const TemporaryFolder folder;
    folder.file("real/a.mp4");
    fs::create_directory_symlink(folder.path, folder / "real/round");
    fs::create_directory_symlink(folder / "real", folder / "again");
    fs::create_symlink(folder / "real/a.mp4", folder / "linked.mp4");
    fs::create_symlink(folder / "gone.mp4", folder / "dangling.mp4");
    EXPECT_THAT(found(folder), ElementsAre("dangling.mp4", "linked.mp4", "real/a.mp4"));
    EXPECT_THAT(Intake::videos({folder / "again"}), ElementsAre(folder / "again/a.mp4")); // but one given is
}

TEST(Intake, takesGivenPathsAsTheyAre) {
    const TemporaryFolder folder;
    const auto movie = folder.file("a.mp4");
    EXPECT_THAT(Intake::videos({movie, folder / "none.mp4", folder.file("a.txt"), movie}),
                ElementsAre(movie, movie));
    folder.file("p.mbproj/media/b.mp4");
    EXPECT_THAT(Intake::videos({folder / "p.mbproj"}), ElementsAre(folder / "p.mbproj/media/b.mp4"));
}

TEST(Intake, aFolderThatCannotBeReadHidesNoOther) {
    if (geteuid() == 0) GTEST_SKIP() << "root may read every folder";
    const TemporaryFolder folder;
    folder.file("a/x.mp4");
    folder.file("b/y.mp4");
    chmod((folder / "a").c_str(), 0);
    EXPECT_THAT(found(folder), ElementsAre("b/y.mp4"));
    chmod((folder / "a").c_str(), 0700);
}

TEST(Intake, walksAFolderOfAnyDepth) {
    const TemporaryFolder folder;
    const auto start = fs::current_path();
    fs::current_path(folder.path);
    for (int level = 0; level < 300; level++) {
        fs::create_directory("0123456789");
        fs::current_path("0123456789");
    }
    std::ofstream("deep.mp4");
    fs::current_path(start);
    EXPECT_EQ(Intake::videos({folder.path}).size(), 1);
}

TEST(Intake, leavesOutWhatCannotBeMeasured) {
    const TemporaryFolder folder;
    EXPECT_THAT(Intake::lengths({folder.file("empty.mp4"), folder.file("words.mp4", "not a movie at all"),
                                 folder / "none.mp4", folder.path}),
                IsEmpty());
}

TEST(Intake, measuresRealFootage) {
    const fs::path footage = MURBO_FOOTAGE;
    if (!fs::exists(footage)) GTEST_SKIP() << "the sample footage is not here";
    const auto measured = Intake::lengths({footage / "broken-no-moov.mp4", footage / "talk-seven-people.mp4",
                                           footage / "broken-cut-short.mkv"});
    ASSERT_EQ(measured.size(), 2u);
    EXPECT_NEAR(measured[0].length, 21, 0.1);
}

TEST(Intake, namesAGroupByItsOneFolder) {
    EXPECT_EQ(Intake::groupName({"/a/Holiday/1.mp4", "/b/Holiday/2.mp4"}), "Holiday");
    EXPECT_EQ(Intake::groupName({"/1.mp4"}), "/");
    for (const auto& name : {Intake::groupName({}), Intake::groupName({"/a/1.mp4", "/b/2.mp4"})})
        EXPECT_THAT(name, testing::MatchesRegex("Added .*20[0-9][0-9].*:[0-9][0-9].*"));
}
