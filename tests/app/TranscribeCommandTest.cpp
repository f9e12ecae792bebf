#include "core/intake/transcription/Sound.h"
#include "core/model/package/Activity.h"
#include "core/model/package/ProjectPackage.h"
#include "platform/base/Tool.h"
#include "tests/TemporaryFolder.h"
#include "tests/app/Program.h"

#include <thread>

#include <fmt/format.h>
#include <gmock/gmock.h>

using namespace murbo;
using testing::HasSubstr;
namespace fs = std::filesystem;

namespace {

/// A project of three clips on one sound, and a whisper-cli of the test's own that finds in each stretch as
/// many lines as it has seconds.
class Transcribe : public testing::Test {
protected:
    void SetUp() override {
        const auto found = Tool::find("whisper-cli");
        for (const char* first : {"/opt/homebrew/bin", "/usr/local/bin", "/usr/bin"})
            if (found && found->parent_path() == first)
                GTEST_SKIP() << "The whisper-cli of " << first << " comes first.";
        folder.file(".whisper-models/ggml-large-v3-turbo.bin");
        fs::create_directories(folder / "temporary");
        tool(R"(seconds=$(( ($(stat -c %s "$4") - 44) / 32000 ))
            [ $seconds != 2 ] || { echo "error: no luck" >&2; exit 5; }
            for second in $(seq $seconds); do
                list="$list, {\"offsets\": {\"from\": $((second * 1000 - 500)), \"to\": ${second}900}, \"text\": \" said $second\"}"
            done
            echo "{\"transcription\": [${list#,}]}" >"${12}.json")");

        Project project;
        const auto sound = folder.file("talk.wav", Sound::header(640000) + std::string(640000, '\1'));
        project.sources.edit() = {{.path = sound, .length = 20, .note = "with Ann & Bo"}};
        const auto source = project.sources[0].id;
        project.clips.edit() = {{.number = 2, .source = source, .start = 10, .end = 14},
                                {.number = 1, .source = source, .start = 0, .end = 1},
                                {.number = 3, .source = source, .start = 16, .end = 18},
                                {.number = 4, .source = source, .start = 19, .end = 20}};
        ProjectPackage::write(project, package, nullptr);
    }

    void tool(const std::string& script) const {
        const auto file =
            folder.file(".local/bin/whisper-cli", "#!/bin/bash\necho \"$@\" >>\"$HOME/said\"\n" + script);
        fs::permissions(file, fs::perms::owner_all);
    }

    Ran run(const std::string& clips, const std::string& also = "") const {
        return murboWith({"--transcribe", package, clips},
                         fmt::format("HOME={0} TMPDIR={0}/temporary XDG_CONFIG_HOME={0}/config {1}",
                                     quoted(folder.path), also));
    }

    std::string said() const {
        const auto project = ProjectPackage::read(package);
        std::string lines;
        for (const auto& line : project.transcript(project.sources[0].id).lines)
            lines += fmt::format("{:g} {}; ", line.start, line.text);
        return lines;
    }

    std::string asked() const { return contentsOf(folder / "said"); }
    std::string state() const { return Activity::read(package).back().state; }
    bool isTidy() const { return fs::is_empty(folder / "temporary"); }

    TemporaryFolder folder;
    const fs::path package = folder / "a b.mbproj";
};

constexpr const char* firstTwo = "0.5 said 1; 10.5 said 1; 11.5 said 2; 12.5 said 3; 13.5 said 4; ";

}

TEST_F(Transcribe, writesClipByClipInTheOrderOfTheirNumbers) {
    const auto ran = run("C02,,C01,c03,C99");
    EXPECT_EQ(ran.code, 0);
    EXPECT_THAT(ran.out,
                testing::MatchesRegex("C01: 1 lines in [0-9.]+ s\n    said 1\n"
                                      "C02: 4 lines in [0-9.]+ s\n    said 1\n    said 2\n    said 3\n"));
    EXPECT_EQ(said(), firstTwo);
    EXPECT_THAT(asked(), HasSubstr(" -l th -np -ml 60 -oj -of "));
    EXPECT_THAT(asked(), HasSubstr(" --prompt with Ann & Bo\n"));
    EXPECT_TRUE(isTidy());

    const auto log = Activity::read(package);
    ASSERT_EQ(log.size(), 2u);
    EXPECT_EQ(log[1].kind + ", " + log[1].title + ", " + *log[1].engine + ", " + log[1].state,
              "transcribe, Transcribe C02, whisper (on this Mac), done");
    EXPECT_TRUE(log[1].ended && *log[1].ended >= log[1].started);
    EXPECT_THAT(log[1].request.value_or(""), testing::StartsWith("whisper-cli -m "));

    EXPECT_EQ(run("C02").code, 0);
    EXPECT_EQ(said(), firstTwo) << "the lines of a stretch are replaced, not doubled";
}

TEST_F(Transcribe, saysOnATerminalWhatItListensTo) {
    const auto command = quoted(MURBO_PROGRAM) + " --transcribe " + quoted(package) + " C02,C01";
    const auto ran = shell(fmt::format("HOME={0} TMPDIR={0}/temporary script -qec {1} /dev/null </dev/null",
                                       quoted(folder.path), quoted(command)));
    EXPECT_THAT(ran.out, HasSubstr("\r\033[KC01, 1 of 2, 0:01 of sound … 0:00"));
    EXPECT_THAT(ran.out, HasSubstr("\r\033[KC02, 2 of 2, 0:04 of sound … 0:00"));
    EXPECT_THAT(ran.out, HasSubstr("\r\033[KC02: 4 lines in "));
}

TEST_F(Transcribe, keepsWhatWasDoneBeforeAFailure) {
    const auto ran = run("all", "sh -c 'exec \"$@\" 2>&1' -");
    EXPECT_EQ(ran.code, 1);
    EXPECT_THAT(ran.out, testing::StartsWith("Listening for the language Thai (th). "));
    EXPECT_THAT(ran.out, testing::EndsWith("Not transcribed after this: C04\n"
                                           "error: whisper-cli stopped with an error. error: no luck\n"));
    EXPECT_EQ(said(), firstTwo);
    EXPECT_EQ(state(), "failed");
    EXPECT_TRUE(isTidy());
}

TEST_F(Transcribe, takesTheLanguageOfTheProjectOrElseOfThePerson) {
    folder.file("config/murbo/settings.json", R"({"language": "de"})");
    run("C01");
    EXPECT_THAT(asked(), HasSubstr(" -l de "));
    auto project = ProjectPackage::read(package);
    project.language = "ja";
    ProjectPackage::write(project, package, nullptr);
    run("C01");
    EXPECT_THAT(asked(), HasSubstr(" -l ja "));
}

TEST_F(Transcribe, doesNothingForClipsWithoutFootageOrWithoutAName) {
    EXPECT_EQ(run(","), (Ran{0, ""}));
    fs::remove(folder / "talk.wav");
    EXPECT_EQ(run("all"), (Ran{0, ""}));
    EXPECT_EQ(asked(), "");
}

TEST_F(Transcribe, leavesNothingWhenItIsInterrupted) {
    tool("echo $$ >\"$HOME/tool\"; exec sleep 600");
    std::jthread interrupting([&] {
        shell(fmt::format(
            "until [ -s {0}/tool ]; do sleep 0.05; done; kill -INT $(ps -o ppid= -p $(cat {0}/tool))",
            quoted(folder.path)));
    });
    EXPECT_EQ(run("all", "env --default-signal=INT"), failure("It was cancelled."));
    EXPECT_EQ(shell(fmt::format("kill -0 $(cat {}/tool)", quoted(folder.path))).code, 1)
        << "the tool lives on";
    EXPECT_EQ(said(), "");
    EXPECT_EQ(state(), "stopped");
    EXPECT_TRUE(isTidy());
}
