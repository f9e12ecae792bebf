#include "tests/app/CommandTest.h"

#include <sys/stat.h>
#include <unistd.h>

using namespace murbo;
using testing::HasSubstr;
namespace fs = std::filesystem;

using Headless = CommandTest;

TEST_F(Headless, projectsThatCannotBeReadAreNotTouched) {
    const auto damaged = [](const std::string& package) {
        return failure("“" + package + "” could not be opened. It is damaged or is not an Murbo project.");
    };
    EXPECT_EQ(murboWith({"--summary", folder / "none.mbproj"}), damaged("none.mbproj"));
    const std::string deep(100 << 20, '[');
    folder.file("bad.mbproj/project.json", deep);
    for (const std::string command : {"--summary", "--add-files"})
        EXPECT_EQ(murboWith({command, folder / "bad.mbproj", movie}), damaged("bad.mbproj"));
    EXPECT_EQ(fs::file_size(folder / "bad.mbproj/project.json"), deep.size());
    folder.file("newer.mbproj/project.json", "{\"format\": 2, \"clips\": \"another shape\"}");
    EXPECT_EQ(murboWith({"--export", folder / "newer.mbproj", "V1", folder / "x.mp4"}),
              failure("“newer.mbproj” was made by a newer version of Murbo. Update Murbo to open it."));

    folder.file("bad.mbproj/project.json", "{\"format\": 1}");
    EXPECT_THAT(
        murboWith({"--summary", folder / "bad.mbproj"}, "MURBO_DEBUG=").out,
        testing::ContainsRegex("^error: .*\nmurbo::ProjectError: .*; from murbo::JsonProblem: .*missing\n$"));
}

TEST_F(Headless, commandsAreTriedInTheirOrderAndWithEnoughWords) {
    const std::string noScreen = "WAYLAND_DISPLAY= DISPLAY= QT_QPA_PLATFORM=";
    for (const auto& words :
         std::vector<std::vector<std::string>>{{}, {"--still", project, "V1"}, {"nonsense"}}) {
        const auto ran = murboWith(words, noScreen);
        EXPECT_EQ(ran.code, 1);
        EXPECT_THAT(ran.out, HasSubstr("--add-stream <project> <recording> [<markers>]"));
    }
    EXPECT_EQ(murboWith({"--open", project}, noScreen),
              failure("There is no screen here to open a window on."));
    EXPECT_EQ(murboWith({"--summary", project, "--new", folder / "not.mbproj"}).code, 0);
    EXPECT_TRUE(fs::exists(folder / "not.mbproj")); // --new comes before --summary
    EXPECT_THAT(murboWith({"--version"}).out,
                testing::MatchesRegex("Murbo [0-9.]+\n(Cut-outs leave .* not installed.\n)?"));
}

TEST_F(Headless, outputThatNobodyReadsHarmsNothingButAFullDiskIsAFailure) {
    addVideo();
    const auto command = quoted(MURBO_PROGRAM) + " --export " + quoted(project) + " V1 ";
    EXPECT_EQ(shell(command + quoted(folder / "x.mp4") + " | true").code, 0);
    EXPECT_TRUE(fs::exists(folder / "x.mp4") || (sleep(2), fs::exists(folder / "x.mp4")));
    EXPECT_EQ(shell(quoted(MURBO_PROGRAM) + " --summary " + quoted(project) + " 2>&1 >/dev/full"),
              failure("The output could not be written: there is no space left on the disk."));
}

TEST_F(Headless, loadsNothingOfTheDesktop) {
    const auto tracing = "LD_DEBUG=libs LD_DEBUG_OUTPUT=" + quoted(folder / "loaded");
    EXPECT_EQ(murboWith({"--summary", project}, tracing).code, 0);
    EXPECT_EQ(murboWith({"--help"}, tracing).code, 0);
    std::string loaded;
    for (const auto& file : fs::directory_iterator(folder.path))
        if (file.path().stem() == "loaded") loaded += contentsOf(file.path());
    EXPECT_THAT(loaded, HasSubstr("libavformat"));
    EXPECT_THAT(loaded, testing::Not(HasSubstr("libQt")));
}

TEST(Kills, harmNothing) {
    const auto ran = shell(quoted(MURBO_TESTS "/app/kills.sh") + " " + quoted(MURBO_PROGRAM) + " 4");
    EXPECT_EQ(ran.code, 0) << ran.out;
}

TEST(Readme, listsTheCommandsAsTheProgramDoes) {
    const auto help = murboWith({"--help"});
    EXPECT_EQ(help.code, 0);
    EXPECT_THAT(contentsOf(fs::path(MURBO_TESTS) / "../README.md"), HasSubstr("```\n" + help.out + "```\n"))
        << "README.md is stale: put the output of build/murbo --help into it";
}
