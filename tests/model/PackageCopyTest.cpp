#include "core/model/package/PackageCopy.h"
#include "core/model/package/ProjectPackage.h"
#include "platform/base/Files.h"
#include "tests/ProblemOf.h"
#include "tests/TemporaryFolder.h"

#include <gtest/gtest.h>

using namespace murbo;
namespace fs = std::filesystem;

namespace {

/// A package with a file of its own, a link and a history.
class PackageToCopy : public testing::Test {
protected:
    PackageToCopy() {
        project.sources.edit() = {{.path = "/a.mp4"}};
        ProjectPackage::write(project, from, nullptr);
        fs::create_directories(from / "media/sounds");
        Files::writeWhole(from / "media/sounds/boom.wav", "boom");
        Files::writeWhole(from / "undo.json", "{}");
        fs::create_symlink("sounds/boom.wav", from / "media/link.wav");
    }
    std::vector<std::string> entries(const fs::path& in) const {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(in)) names.push_back(entry.path().filename());
        std::sort(names.begin(), names.end());
        return names;
    }

    TemporaryFolder folder;
    fs::path from = folder / "One.mbproj";
    Project project;
};

}

TEST_F(PackageToCopy, comesWithAllThatLiesInItAndWithWhatIsNotSavedYet) {
    project.clips.edit().push_back({.number = 1, .source = project.sources[0].id, .end = 3});
    const auto to = folder / "new/Two.mbproj";
    PackageCopy::make(from, to, project);
    EXPECT_EQ(ProjectPackage::read(to), project);
    EXPECT_EQ(Files::readWhole(to / "media/sounds/boom.wav", 100), "boom");
    EXPECT_EQ(Files::readWhole(to / "undo.json", 100), "{}");
    EXPECT_EQ(fs::read_symlink(to / "media/link.wav"), "sounds/boom.wav");
    EXPECT_NE(ProjectPackage::read(from), project) << "the first stays as it was";
    EXPECT_EQ(entries(folder / "new"), std::vector<std::string>{"Two.mbproj"});
}

TEST_F(PackageToCopy, isNeverPutOverAnything) {
    const auto to = folder / "Two.mbproj";
    for (const bool file : {true, false}) {
        fs::remove_all(to);
        if (file)
            Files::writeWhole(to, "mine");
        else
            fs::create_directory(to);
        EXPECT_EQ(problemOf([&] { PackageCopy::make(from, to, project); }), "“Two.mbproj” is already there.");
    }
    EXPECT_TRUE(fs::is_empty(to));
}

TEST_F(PackageToCopy, leavesNothingHalfMade) {
    std::stop_source stop;
    stop.request_stop();
    EXPECT_NE(problemOf([&] { PackageCopy::make(from, folder / "Two.mbproj", project, stop.get_token()); }),
              "");
    EXPECT_NE(problemOf([&] { PackageCopy::make(folder / "gone.mbproj", folder / "Two.mbproj", project); }),
              "");
    EXPECT_NE(problemOf([&] { PackageCopy::make(from, from / "media/Two.mbproj", project); }), "");
    EXPECT_EQ(entries(folder.path), std::vector<std::string>{"One.mbproj"});
}
