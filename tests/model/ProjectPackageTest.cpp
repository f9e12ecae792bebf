#include "core/model/package/ProjectPackage.h"
#include "tests/FullDisk.h"
#include "tests/ProblemOf.h"
#include "tests/TemporaryFolder.h"

#include <limits>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace murbo;
namespace fs = std::filesystem;
using Kind = ProjectError::Kind;

namespace {

std::optional<Kind> faultOf(const fs::path& package) {
    try {
        ProjectPackage::read(package);
    } catch (const ProjectError& error) {
        return error.kind;
    }
    return std::nullopt;
}

/// A package of a project with two sources, the first of them with a transcript.
class Package : public testing::Test {
protected:
    Package() {
        project.sources.edit() = {{.path = "/a.mp4"}, {.path = "/b.mp4"}};
        project.transcripts[source()].lines.edit() = {{.text = "hello"}};
        ProjectPackage::write(project, folder.path, nullptr);
    }

    const UUID& source() const { return project.sources[0].id; }
    std::string transcript() const { return "transcripts/" + source().text() + ".json"; }

    /// The files that a write over the project replaces.
    std::string written(const Project& changed, const Project* previous) const {
        for (const auto& file : {std::string("project.json"), transcript()}) folder.file(file, "mark");
        ProjectPackage::write(changed, folder.path, previous);
        std::string files;
        if (contentsOf(folder / "project.json") != "mark") files += "project";
        if (contentsOf(folder / transcript()) != "mark") files += " transcript";
        return files;
    }

    TemporaryFolder folder;
    Project project;
};

}

TEST_F(Package, hasOnlyWhatChangedWrittenAnew) {
    EXPECT_EQ(written(project, &project), "");
    auto changed = project;
    changed.lastClip = 3;
    EXPECT_EQ(written(changed, &project), "project");
    changed = project;
    changed.transcripts[source()].lines.edit();
    EXPECT_EQ(written(changed, &project), "") << "copied, but equal";
    changed.transcripts[source()].notes.edit().emplace_back();
    EXPECT_EQ(written(changed, &project), " transcript");
    EXPECT_EQ(written(project, nullptr), "project transcript");
}

TEST_F(Package, theFileOfATranscriptOutlivesIt) {
    auto after = project;
    after.transcripts.clear();
    ProjectPackage::write(after, folder.path, &project);
    EXPECT_EQ(ProjectPackage::read(folder.path), project);
    after.sources = {};
    ProjectPackage::write(after, folder.path, &project);
    folder.file(transcript(), "broken");
    EXPECT_TRUE(ProjectPackage::read(folder.path).transcripts.empty());
}

TEST_F(Package, damagedIsToldFromNewer) {
    const std::string rest =
        R"("groups":[],"sources":[],"clips":[],"bookmarks":[],"videos":[],"styles":[],"lastClip":0,"lastBookmark":0,"lastVideo":0})";
    const std::pair<std::string, std::optional<Kind>> cases[] = {
        {R"({"format": 2, "sources": "garbage"})", Kind::newer},
        {R"({"format": 1e3})", Kind::newer},
        {R"({"format": 2.5})", Kind::damaged},
        {R"({"format": 1})", Kind::damaged},
        {R"({"format": null})", Kind::damaged},
        {R"([])", Kind::damaged},
        {"", Kind::damaged},
        {std::string(1 << 20, '['), Kind::damaged},
        {R"({"format": 0, )" + rest, std::nullopt},
        {R"({"format": 1, "extra": 1, "captionStyle": null, )" + rest, std::nullopt},
        {R"({"format": 1, "language": 4, )" + rest, Kind::damaged},
        {R"({"format": 1, "transcripts": 4, )" + rest, std::nullopt},
    };
    for (const auto& [text, kind] : cases) {
        folder.file("project.json", text);
        EXPECT_EQ(faultOf(folder.path), kind) << text.substr(0, 80);
    }
    EXPECT_EQ(faultOf(folder / "none.mbproj"), Kind::damaged);
}

TEST_F(Package, aBrokenTranscriptKeepsItShut) {
    for (const char* text : {"{}", "", R"({"lines": []})", R"({"lines": [{}], "notes": []})"}) {
        folder.file(transcript(), text);
        EXPECT_EQ(faultOf(folder.path), Kind::damaged) << text;
    }
    fs::remove(folder / transcript());
    fs::create_directory(folder / transcript());
    EXPECT_EQ(faultOf(folder.path), Kind::damaged);
}

TEST_F(Package, isCreatedOnlyWhereNothingStands) {
    const auto package = folder / "Name.mbproj";
    ProjectPackage::create(package);
    EXPECT_EQ(ProjectPackage::read(package), Project());
    EXPECT_FALSE(fs::exists(package / "transcripts"));
    fs::create_symlink("nowhere", folder / "Link.mbproj");
    EXPECT_THROW(ProjectPackage::create(folder / "Link.mbproj"), ProjectError);
    EXPECT_THROW(ProjectPackage::create(folder / "project.json/Name.mbproj"), Problem);
}

TEST_F(Package, whoseCreationFailsLeavesNoFolder) {
    {
        const FullDisk disk(10);
        EXPECT_THROW(ProjectPackage::create(folder / "new/Name.mbproj"), Problem);
    }
    EXPECT_FALSE(fs::exists(folder / "new"));
}

TEST_F(Package, thatWasMovedIsNotMadeAnewByHalves) {
    const auto package = folder / "deep/er/ไทย “a”\n.mbproj";
    ProjectPackage::write(project, package, nullptr);
    EXPECT_EQ(ProjectPackage::read(package), project);
    fs::rename(package, folder / "Other.mbproj");
    auto changed = project;
    changed.lastClip = 7;
    EXPECT_EQ(problemOf([&] { ProjectPackage::write(changed, package, &project); }),
              "“ไทย “a”\n.mbproj” is no longer in its place. It was moved or deleted.");
    EXPECT_FALSE(fs::exists(package));
}

TEST_F(Package, aProjectFileThatIsALinkStaysOne) {
    const TemporaryFolder elsewhere;
    fs::rename(folder / "project.json", elsewhere / "kept.json");
    fs::create_symlink(elsewhere / "kept.json", folder / "project.json");
    project.lastClip = 7;
    ProjectPackage::write(project, folder.path, nullptr);
    EXPECT_TRUE(fs::is_symlink(folder / "project.json"));
    EXPECT_EQ(ProjectPackage::read(folder.path).lastClip, 7);
}

TEST_F(Package, aNumberThatCannotBeWrittenCostsNothing) {
    auto broken = project;
    broken.sources.edit()[0].length = std::numeric_limits<double>::quiet_NaN();
    EXPECT_THROW(ProjectPackage::write(broken, folder.path, &project), Problem);
    EXPECT_EQ(ProjectPackage::read(folder.path), project);
}
