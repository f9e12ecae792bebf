#include "platform/base/Files.h"
#include "tests/editor/Lines.h"

using namespace murbo;

namespace fs = std::filesystem;

namespace {

const auto example = fs::path(MURBO_TESTS).parent_path() / "examples" / "script";

std::vector<std::string> linesOf(const fs::path& file) {
    std::ifstream stream(file);
    std::vector<std::string> all;
    for (std::string line; std::getline(stream, line);) all.push_back(line);
    return all;
}

}

/// The lines of the example, each answered as it says there.
TEST(ExampleScript, makesAShortOfFootage) {
    if (!fs::exists(MURBO_FOOTAGE "/talk-seven-people.mp4")) GTEST_SKIP() << "the footage is not at hand";
    Lines lines;
    lines.close();
    ProjectPackage::write(Project(), lines.package(), nullptr);
    lines.open();
    const auto before = fs::current_path();
    fs::current_path(MURBO_FOOTAGE); // the lines name files by their names alone
    const auto wanted = linesOf(example / "answers.jsonl");
    auto answer = wanted.begin();
    const auto carryOut = [&](const char* file) {
        for (const auto& line : linesOf(example / file)) {
            ASSERT_NE(answer, wanted.end()) << line;
            EXPECT_EQ(lines(line), *answer++) << line;
        }
    };
    carryOut("1-footage.jsonl");
    lines.close();
    const auto project = ProjectPackage::read(lines.package());
    for (const auto& source : project.sources)
        if (source.name() == "talk-seven-people.mp4")
            Files::copy(example / "said.json",
                        lines.package() / "transcripts" / (source.id.text() + ".json"));
    lines.open();
    carryOut("2-short.jsonl");
    fs::current_path(before);
    EXPECT_EQ(answer, wanted.end());
    ASSERT_EQ(lines.project().videos.size(), 1u);
    EXPECT_EQ(lines.project().videos[0].cuts.size(), 4u);
    EXPECT_EQ(ProjectPackage::read(lines.package()), lines.project());
}
