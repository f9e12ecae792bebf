#include "core/model/package/History.h"
#include "tests/TemporaryFolder.h"

#include <fstream>
#include <limits>

#include <fmt/format.h>
#include <gtest/gtest.h>
#include <sys/resource.h>

using namespace murbo;

namespace {

Project spoken(const UUID& source, int lines) {
    Project project;
    auto& said = project.transcripts[source].lines.edit();
    for (int at = 0; at < lines; ++at)
        said.push_back({.start = double(at), .end = at + 1.0, .text = "Line " + std::to_string(at)});
    return project;
}

Project named(const std::string& language) {
    Project project;
    project.language = language;
    return project;
}

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
    big.transcripts[source].lines.edit()[0].text = std::string(History::maxBytes / 3, 'x');
    History history;
    for (int at = 0; at < 4; ++at) {
        Project changed = big;
        changed.transcripts[source].lines.edit()[0].start += 1;
        history.record("Step " + std::to_string(at), big, changed);
        big = changed;
    }
    ASSERT_EQ(history.past().size(), 1u);
    EXPECT_EQ(history.undoName(), "Step 3");
    big.transcripts[source].lines.edit()[0].text.resize(History::maxBytes, 'x');
    history.record("Huge", {}, big);
    EXPECT_EQ(history.undoName(), "Huge");
}

TEST(History, outlivesTheSession) {
    const TemporaryFolder package;
    const UUID source = UUID::make();
    const Project before = spoken(source, 5000);
    Project project = before;
    project.transcripts[source].lines.edit()[7].text = "changed “so”";
    const Project after = project;
    History history;
    history.record("First", {}, before);
    history.record("Fix Words", before, project);
    history.undo(project);
    ProjectPackage::writeHistory(history, package.path);

    History again = ProjectPackage::readHistory(package.path);
    EXPECT_EQ(again.redo(project), "Fix Words");
    EXPECT_EQ(project, after);
    again.undo(project);
    EXPECT_EQ(project, before);
    again.undo(project);
    EXPECT_EQ(project, Project{});

    // Written from what was read, it is the same file to the byte.
    const auto bytes = contentsOf(package / "undo.json");
    ProjectPackage::writeHistory(ProjectPackage::readHistory(package.path), package.path);
    EXPECT_EQ(contentsOf(package / "undo.json"), bytes);
}

TEST(History, truncatedAnywhereIsAnEmptyOne) {
    const TemporaryFolder package;
    History history;
    history.record("Step", named("th"), named("en"));
    ProjectPackage::writeHistory(history, package.path);
    const auto whole = contentsOf(package / "undo.json");
    for (std::size_t length = 0; length < whole.find_last_of('}'); ++length) {
        package.file("undo.json", whole.substr(0, length));
        EXPECT_TRUE(ProjectPackage::readHistory(package.path).past().empty()) << length;
    }
    EXPECT_TRUE(ProjectPackage::readHistory(package / "none").past().empty());
    std::string steps;
    for (int at = 0; at < 105; ++at)
        steps += fmt::format(R"({}{{"after":{{}},"before":{{}},"name":"{}"}})", at > 0 ? "," : "", at);
    package.file("undo.json", R"({"future":[],"past":[)" + steps + "]}");
    EXPECT_EQ(ProjectPackage::readHistory(package.path).past().size(), 100u);
    EXPECT_EQ(ProjectPackage::readHistory(package.path).past().front().name, "5");
}

TEST(History, thatTheMemoryCannotHoldIsAnEmptyOne) {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    GTEST_SKIP() << "sanitizers keep memory of their own";
#endif
    const TemporaryFolder package;
    package.file("undo.json", R"({"future":[],"past":[],"more":")" + std::string(60'000'000, 'x') + "\"}");
    const auto read = [&] {
        rlim_t pages = 0;
        std::ifstream("/proc/self/statm") >> pages;
        const rlim_t bytes = pages * 4096 + 20'000'000;
        const rlimit limit{bytes, bytes};
        setrlimit(RLIMIT_AS, &limit);
        std::exit(ProjectPackage::readHistory(package.path).past().empty() ? 0 : 1);
    };
    EXPECT_EXIT(read(), testing::ExitedWithCode(0), "");
}

TEST(History, leavesOutAPartThatCannotBeWritten) {
    const TemporaryFolder package;
    Project broken = named("en");
    broken.clips.edit().push_back({.start = std::numeric_limits<double>::quiet_NaN()});
    History history;
    history.record("Step", named("th"), broken);
    ProjectPackage::writeHistory(history, package.path);
    const auto again = ProjectPackage::readHistory(package.path);
    ASSERT_EQ(again.past().size(), 1u);
    EXPECT_EQ(again.past()[0].after.size(), 1u);
    EXPECT_TRUE(again.past()[0].after.contains("language"));
}
