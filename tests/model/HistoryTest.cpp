#include "core/model/History.h"
#include "platform/base/Codec.h"
#include "platform/base/Files.h"

#include <fstream>
#include <limits>

#include <gtest/gtest.h>

using namespace murbo;

namespace {

class HistoryFiles : public testing::Test {
protected:
    void SetUp() override {
        package = std::filesystem::temp_directory_path() / ("history-" + UUID::make().text() + ".mbproj");
        std::filesystem::create_directories(package);
    }
    void TearDown() override { std::filesystem::remove_all(package); }

    std::filesystem::path package;
};

Project spoken(const UUID& source, int lines) {
    Project project;
    Transcript transcript;
    for (int at = 0; at < lines; ++at)
        transcript.lines.edit().push_back(
            {UUID::make(), double(at), at + 1.0, "Line " + std::to_string(at), {}});
    project.transcripts[source] = transcript;
    return project;
}

Project named(const std::string& language) {
    Project project;
    project.language = language;
    return project;
}

}

TEST(History, goesBackAndForthThroughEveryKindOfPart) {
    const UUID source = UUID::make();
    Project project;
    History history;
    std::vector<Project> states{project};
    const auto step = [&](const char* name, auto change) {
        const Project before = project;
        change(project);
        history.record(name, before, project);
        states.push_back(project);
    };
    step("Add Files", [&](Project& p) {
        p.groups.edit().push_back({UUID::make(), "Group"});
        p.sources.edit().push_back(
            {source, p.groups[0].id, "/a.mp4", {}, Source::Kind::file, 10, {}, {}, {}});
        p.clips.edit().push_back({UUID::make(), ++p.lastClip, {}, source, 0, 10, {}, {}, {}, {}, {}});
    });
    step("Bookmark", [&](Project& p) {
        p.bookmarks.edit().push_back({UUID::make(), ++p.lastBookmark, source, 1, {}, {}});
    });
    step("New Video", [](Project& p) {
        p.videos.edit().push_back({UUID::make(), ++p.lastVideo, {}, "First"});
    });
    step("Transcribe", [&](Project& p) { p.transcripts = spoken(source, 3).transcripts; });
    step("Style", [](Project& p) { p.captionStyle = CaptionStyle{.size = 50}; });
    step("Save Style", [](Project& p) { p.styles.edit().push_back({.id = "mine"}); });
    step("Language", [](Project& p) { p.language = "th"; });
    step("Ideas", [](Project& p) { p.ideas.emplace(); });

    for (std::size_t at = states.size() - 1; at-- > 0;) {
        ASSERT_TRUE(history.undo(project));
        EXPECT_EQ(project, states[at]) << at;
    }
    EXPECT_FALSE(history.undo(project));
    EXPECT_EQ(project, states.front());
    for (std::size_t at = 1; at < states.size(); ++at) {
        ASSERT_TRUE(history.redo(project));
        EXPECT_EQ(project, states[at]) << at;
    }
    EXPECT_EQ(history.undoName(), "Ideas");
    EXPECT_FALSE(history.redo(project));
}

TEST(History, keepsAHundredStepsAndARedoUntilSomethingChanges) {
    History history;
    for (int at = 0; at < 101; ++at)
        history.record("Step " + std::to_string(at), named(std::to_string(at)),
                       named(std::to_string(at + 1)));
    ASSERT_EQ(history.past().size(), 100u);
    EXPECT_EQ(history.past().front().name, "Step 1");

    Project project = named("101");
    history.undo(project);
    history.record("Nothing", project, project);
    EXPECT_EQ(history.redoName(), "Step 100");
    history.record("Something", project, named("other"));
    EXPECT_FALSE(history.redoName());
}

TEST(History, dropsOldStepsThatComeToTooMuchButNeverTheNewest) {
    const UUID source = UUID::make();
    Project big = spoken(source, 1);
    big.transcripts[source].lines.edit()[0].text = std::string(History::mostBytes / 3, 'x');
    History history;
    for (int at = 0; at < 4; ++at) {
        Project changed = big;
        changed.transcripts[source].lines.edit()[0].start += 1;
        history.record("Step " + std::to_string(at), big, changed);
        big = changed;
    }
    ASSERT_EQ(history.past().size(), 1u);
    EXPECT_EQ(history.undoName(), "Step 3");
}

TEST(History, aBrokenPartCostsNoOther) {
    Project project = named("th");
    project.lastClip = 7;
    const ProjectParts parts{{"clips", Data{"[{]"}},
                             {"counters", Data{"[1,2]"}},
                             {"transcript/none", Data{"null"}},
                             {"unheard", Data{"1"}},
                             {"language", Data{"null"}}};
    Parts::apply(parts, project);
    EXPECT_EQ(project.lastClip, 7);
    EXPECT_FALSE(project.language);
}

TEST_F(HistoryFiles, outliveTheSession) {
    const UUID source = UUID::make();
    const Project before = spoken(source, 200);
    Project project = before;
    project.transcripts[source].lines.edit()[7].text = "changed “so”";
    const Project after = project;
    History history;
    history.record("First", {}, before);
    history.record("Fix Words", before, project);
    history.undo(project);
    ProjectPackage::writeHistory(history, package);

    History again = ProjectPackage::readHistory(package);
    EXPECT_EQ(again.redo(project), "Fix Words");
    EXPECT_EQ(project, after);
    again.undo(project);
    EXPECT_EQ(project, before);
    again.undo(project);
    EXPECT_EQ(project, Project{});

    // Written from what was read, it is the same file to the byte.
    ProjectPackage::writeHistory(ProjectPackage::readHistory(package), package);
    const auto bytes = Files::readWhole(package / "undo.json", 1 << 24);
    ProjectPackage::writeHistory(history, package);
    EXPECT_EQ(Files::readWhole(package / "undo.json", 1 << 24), bytes);
}

TEST_F(HistoryFiles, truncatedAnywhereAreAnEmptyHistory) {
    History history;
    history.record("Step", named("th"), named("en"));
    ProjectPackage::writeHistory(history, package);
    const auto whole = Files::readWhole(package / "undo.json", 1 << 20);
    for (std::size_t length = 0; length < whole.find_last_of('}'); ++length) {
        std::ofstream(package / "undo.json", std::ios::trunc) << whole.substr(0, length);
        EXPECT_TRUE(ProjectPackage::readHistory(package).past().empty()) << length;
    }
    std::filesystem::remove(package / "undo.json");
    EXPECT_TRUE(ProjectPackage::readHistory(package).past().empty());
}

TEST_F(HistoryFiles, leaveOutAPartThatCannotBeWritten) {
    Project broken = named("en");
    broken.clips.edit().push_back({.start = std::numeric_limits<double>::quiet_NaN()});
    History history;
    history.record("Step", named("th"), broken);
    ProjectPackage::writeHistory(history, package);
    const auto again = ProjectPackage::readHistory(package);
    ASSERT_EQ(again.past().size(), 1u);
    EXPECT_EQ(again.past()[0].after.size(), 1u);
    EXPECT_TRUE(again.past()[0].after.contains("language"));
}
