#include "core/model/ProjectPackage.h"
#include "platform/base/Codec.h"
#include "platform/base/Files.h"
#include "tests/base/Scratch.h"

#include <algorithm>
#include <csignal>
#include <fstream>
#include <limits>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace murbo;
namespace fs = std::filesystem;

namespace {

constexpr std::size_t plenty = 1 << 24;
constexpr const char* empty =
    R"("groups":[],"sources":[],"clips":[],"bookmarks":[],"videos":[],"styles":[],"lastClip":0,"lastBookmark":0,"lastVideo":0})";

void put(const fs::path& path, const std::string& text) {
    fs::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << text;
}

std::optional<ProjectError::Kind> faultOf(const fs::path& package) {
    try {
        ProjectPackage::read(package);
    } catch (const ProjectError& error) {
        return error.kind;
    }
    return std::nullopt;
}

/// A project with two sources, the first of them with a transcript.
Project spoken() {
    Project project;
    for (const char* name : {"/a.mp4", "/b.mp4"}) {
        Source source;
        source.path = name;
        project.sources.edit().push_back(source);
    }
    Line line;
    line.text = "hello";
    project.transcripts[project.sources[0].id].lines.edit().push_back(line);
    return project;
}

fs::path transcriptFile(const fs::path& package, const Project& project) {
    return package / "transcripts" / (project.sources[0].id.text() + ".json");
}

/// What a write replaced: files get a new inode when they are written.
std::set<std::string> writtenBy(const fs::path& package, const Project& project, const Project* previous) {
    std::map<std::string, std::string> marked;
    for (const auto& entry : fs::recursive_directory_iterator(package))
        if (entry.is_regular_file()) put(entry.path(), "mark");
    ProjectPackage::write(project, package, previous);
    std::set<std::string> written;
    for (const auto& entry : fs::recursive_directory_iterator(package))
        if (entry.is_regular_file() && Files::readWhole(entry.path(), plenty) != "mark")
            written.insert(fs::relative(entry.path(), package).parent_path().string() + "/");
    return written;
}

}

TEST(ProjectPackage, isReadAsItWasWritten) {
    const Scratch scratch;
    const auto package = scratch / "deep/er/ไทย “a”\n.mbproj";
    const auto project = spoken();
    ProjectPackage::write(project, package, nullptr);
    EXPECT_EQ(ProjectPackage::read(package), project);
}

TEST(ProjectPackage, writesOnlyWhatChanged) {
    const Scratch scratch;
    const auto before = spoken();
    ProjectPackage::write(before, scratch.path(), nullptr);
    auto after = before;
    EXPECT_EQ(writtenBy(scratch.path(), after, &before), (std::set<std::string>{}));
    after.lastClip = 3;
    EXPECT_EQ(writtenBy(scratch.path(), after, &before), (std::set<std::string>{"/"}));
    auto spokenMore = before;
    spokenMore.transcripts[before.sources[0].id].notes.edit().emplace_back();
    EXPECT_EQ(writtenBy(scratch.path(), spokenMore, &before), (std::set<std::string>{"transcripts/"}));
    auto copied = before;
    copied.transcripts[before.sources[0].id].lines.edit();
    EXPECT_EQ(writtenBy(scratch.path(), copied, &before), (std::set<std::string>{}));
    EXPECT_EQ(writtenBy(scratch.path(), before, nullptr), (std::set<std::string>{"/", "transcripts/"}));
}

TEST(ProjectPackage, theFileOfATranscriptOutlivesIt) {
    const Scratch scratch;
    const auto before = spoken();
    ProjectPackage::write(before, scratch.path(), nullptr);
    auto after = before;
    after.transcripts.clear();
    ProjectPackage::write(after, scratch.path(), &before);
    EXPECT_EQ(ProjectPackage::read(scratch.path()), before);
    after.sources = {};
    ProjectPackage::write(after, scratch.path(), &before);
    put(transcriptFile(scratch.path(), before), "broken");
    EXPECT_TRUE(ProjectPackage::read(scratch.path()).transcripts.empty());
}

TEST(ProjectPackage, tellsDamagedFromNewer) {
    using Kind = ProjectError::Kind;
    const std::string huge(1 << 20, '[');
    const std::pair<std::string, std::optional<Kind>> cases[] = {
        {R"({"format": 2, "sources": "garbage"})", Kind::newer},
        {R"({"format": 1e3})", Kind::newer},
        {R"({"format": 2.5})", Kind::damaged},
        {R"({"format": 1})", Kind::damaged},
        {R"({"format": null})", Kind::damaged},
        {R"([])", Kind::damaged},
        {"", Kind::damaged},
        {huge, Kind::damaged},
        {std::string(R"({"format": 0, )") + empty, std::nullopt},
        {std::string(R"({"format": 1, "extra": 1, "captionStyle": null, )") + empty, std::nullopt},
        {std::string(R"({"format": 1, "language": 4, )") + empty, Kind::damaged},
        {std::string(R"({"format": 1, "transcripts": 4, )") + empty, std::nullopt},
    };
    for (const auto& [text, kind] : cases) {
        const Scratch scratch;
        put(scratch / "project.json", text);
        EXPECT_EQ(faultOf(scratch.path()), kind) << text.substr(0, 80);
    }
    const Scratch scratch;
    EXPECT_EQ(faultOf(scratch / "none.mbproj"), Kind::damaged);
}

TEST(ProjectPackage, aBrokenTranscriptKeepsTheProjectShut) {
    const auto project = spoken();
    for (const char* text : {"{}", "", R"({"lines": []})", R"({"lines": [{}], "notes": []})"}) {
        const Scratch scratch;
        ProjectPackage::write(project, scratch.path(), nullptr);
        put(transcriptFile(scratch.path(), project), text);
        EXPECT_EQ(faultOf(scratch.path()), ProjectError::Kind::damaged) << text;
    }
    const Scratch scratch;
    ProjectPackage::write(project, scratch.path(), nullptr);
    fs::remove(transcriptFile(scratch.path(), project));
    fs::create_directory(transcriptFile(scratch.path(), project));
    EXPECT_EQ(faultOf(scratch.path()), ProjectError::Kind::damaged);
}

TEST(ProjectPackage, isCreatedOnlyWhereNothingStands) {
    const Scratch scratch;
    const auto package = scratch / "Name.mbproj";
    ProjectPackage::create(package);
    EXPECT_EQ(ProjectPackage::read(package), Project());
    EXPECT_FALSE(fs::exists(package / "transcripts"));
    fs::create_symlink("nowhere", scratch / "Link.mbproj");
    EXPECT_THROW(ProjectPackage::create(scratch / "Link.mbproj"), ProjectError);
    put(scratch / "file", "");
    EXPECT_THROW(ProjectPackage::create(scratch / "file/Name.mbproj"), Problem);
}

TEST(ProjectPackage, aNumberThatCannotBeWrittenCostsNothing) {
    const Scratch scratch;
    auto project = spoken();
    ProjectPackage::write(project, scratch.path(), nullptr);
    auto broken = project;
    broken.sources.edit()[0].length = std::numeric_limits<double>::quiet_NaN();
    EXPECT_THROW(ProjectPackage::write(broken, scratch.path(), &project), Problem);
    EXPECT_EQ(ProjectPackage::read(scratch.path()), project);
}

TEST(ProjectPackage, survivesBeingKilledWhileSaving) {
    const Scratch scratch;
    auto project = spoken();
    project.transcripts[project.sources[1].id].lines = std::vector<Line>(2000);
    ProjectPackage::write(project, scratch.path(), nullptr);
    for (int round = 0; round < 20; ++round) {
        const auto child = ::fork();
        ASSERT_GE(child, 0);
        while (child == 0) {
            ++project.lastClip;
            ProjectPackage::write(project, scratch.path(), nullptr);
        }
        ::usleep(static_cast<useconds_t>(1000 + 611 * round));
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
        ASSERT_EQ(faultOf(scratch.path()), std::nullopt);
    }
}

TEST(ProjectError, saysItInTheOwnersWords) {
    using Kind = ProjectError::Kind;
    const std::tuple<Kind, const char*, const char*> cases[] = {
        {Kind::damaged, "/x/Name.mbproj",
         "“Name.mbproj” could not be opened. It is damaged or is not an Murbo project."},
        {Kind::newer, "/x/Name.mbproj/",
         "“Name.mbproj” was made by a newer version of Murbo. Update Murbo to open it."},
        {Kind::exists, "Name.mbproj", "“Name.mbproj” is already there."}};
    for (const auto& [kind, path, words] : cases) EXPECT_EQ(ProjectError(kind, path).message(), words);
}
