#include "core/model/package/PackageLock.h"
#include "core/model/package/ProjectPackage.h"
#include "tests/TemporaryFolder.h"
#include "tests/app/Program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace murbo;
using testing::HasSubstr;
using testing::StartsWith;
namespace fs = std::filesystem;

namespace {

/// Two seconds of moving picture with a tone, made once: 320x180, 25 pictures a second.
const fs::path& sampleMovie() {
    static const TemporaryFolder folder;
    static const auto movie = [] {
        const auto path = folder / "sample.mp4";
        shell(
            "ffmpeg -nostdin -y -f lavfi -i testsrc2=s=320x180:r=25:d=2 -f lavfi -i sine=d=2 -c:v libx264 "
            "-preset ultrafast -c:a aac -shortest " +
            quoted(path));
        return path;
    }();
    return movie;
}

/// A project with the sample movie in it, under a name that needs care wherever it is printed.
class Headless : public testing::Test {
protected:
    static inline const std::string name = "ภาพ \"1\" 'x' 📱\n.mp4";

    Headless() {
        fs::copy_file(sampleMovie(), movie);
        murboWith({"--new", project});
    }

    void addVideo(int cuts = 1) {
        murboWith({"--add-files", project, movie});
        auto read = ProjectPackage::read(project);
        const auto source = read.sources[0].id;
        Video video{.number = 1, .title = "One"};
        video.cuts = std::vector<Cut>(cuts, {.source = source, .start = 0.5, .end = 1});
        read.videos.edit().push_back(video);
        read.transcripts[source].lines.edit() = {{.start = 0.5, .end = 1, .text = "สวัสดี 👋"}};
        ProjectPackage::write(read, project, nullptr);
    }

    std::string projectFile() const { return contentsOf(project / "project.json"); }

    TemporaryFolder folder;
    fs::path project = folder / "p.mbproj";
    fs::path movie = folder / name;
};

/// What the streams of a movie or picture are like.
std::string probed(const fs::path& file) {
    return shell(
               "ffprobe -v error -show_entries stream=codec_name,width,height,r_frame_rate,nb_frames "
               "-of csv=p=0 " +
               quoted(file))
        .out;
}

}

TEST_F(Headless, aNewProjectIsMadeOnceAndInSilence) {
    EXPECT_EQ(murboWith({"--new", folder / "new.mbproj"}), (Ran{0, ""}));
    EXPECT_EQ(murboWith({"--new", folder / "new.mbproj/"}), failure("“new.mbproj” is already there."));
    EXPECT_EQ(murboWith({"--new", "./sub/../here.mbproj"}, "", folder.path), (Ran{0, ""}));
    EXPECT_TRUE(fs::exists(folder / "here.mbproj/project.json"));
}

TEST_F(Headless, summaryTellsWhatIsMissing) {
    addVideo();
    fs::remove(movie);
    const auto before = projectFile();
    EXPECT_THAT(murboWith({"--summary", project}).out, HasSubstr("(missing)\n    C01  0:00–0:02  1 line\n"));
    EXPECT_EQ(projectFile(), before);
}

TEST_F(Headless, filesAreAddedAndCounted) {
    folder.file("more/empty.mp4");
    folder.file("more/words.mov", "these are words");
    folder.file("more/truncated.mp4", std::string(5000, 'x'));
    fs::copy_file(sampleMovie(), folder / "more/b.mp4");
    fs::copy_file(sampleMovie(), folder / "more/no project can hold \xFF this name.mp4");
    shell("cd " + quoted(folder / "more") + " && ffmpeg -nostdin -i b.mp4 -vn -c copy sound.mp4");
    EXPECT_EQ(murboWith({"--add-files", project, movie, folder / "more", "--fps", movie}),
              printed("added 3 files; 3 clips in all"));
    auto read = ProjectPackage::read(project);
    ASSERT_EQ(read.sources.size(), 3);
    EXPECT_EQ(read.groups[0].name.substr(0, 6), "Added ");
    EXPECT_EQ(read.sources[2].path, movie);
    EXPECT_NEAR(read.sources[2].length, 2, 0.1);

    // No path is left, and the project is written all the same.
    EXPECT_EQ(murboWith({"--add-files", project, "--x", movie}), printed("added 0 files; 3 clips in all"));
    EXPECT_EQ(ProjectPackage::read(project).groups.size(), 2);

    // From within a folder.
    fs::create_directory_symlink(folder.path, folder / "link");
    fs::create_directory(folder / "inner");
    fs::copy_file(sampleMovie(), folder / "inner/a.mp4");
    EXPECT_EQ(murboWith({"--add-files", "../p.mbproj", "."}, "", folder / "inner"),
              printed("added 1 files; 4 clips in all"));
    read = ProjectPackage::read(project);
    EXPECT_EQ(read.sources.back().path, folder / "inner/a.mp4");
    EXPECT_EQ(read.groups.back().name, "inner");
}

TEST_F(Headless, aStreamFindsItsMarkersItself) {
    const auto beside = fs::path(name).stem().string() + ".csv";
    const auto stream = [&](std::vector<std::string> more) {
        more.insert(more.begin(), {"--add-stream", project, movie});
        return murboWith(more);
    };
    EXPECT_EQ(stream({}), printed("added " + name + ": 0 clips from no markers"));
    folder.file(beside, "time,label\r\n0:01,\"x\"\r\n");
    EXPECT_EQ(stream({}), printed("added " + name + ": 1 clips from " + beside));
    EXPECT_EQ(stream({"--foo"}), printed("added " + name + ": 1 clips from " + beside));
    EXPECT_EQ(stream({folder.file("own.txt", "0:00:01,a\n500,b\n")}),
              printed("added " + name + ": 1 clips from own.txt"));
    EXPECT_EQ(stream({folder / "none.csv"}), printed("added " + name + ": 0 clips from none.csv"));
    const auto read = ProjectPackage::read(project);
    EXPECT_EQ(read.sources[1].stream->markers, "time,label\r\n0:01,\"x\"\r\n");
    EXPECT_FALSE(read.sources[4].stream);
    EXPECT_EQ(murboWith({"--add-stream", project, folder.file("bad.mkv", "no movie")}),
              failure("bad.mkv could not be read."));
}

TEST_F(Headless, projectsThatCannotBeReadAreNotTouched) {
    const auto damaged = [](const std::string& package) {
        return failure("“" + package + "” could not be opened. It is damaged or is not an Murbo project.");
    };
    EXPECT_EQ(murboWith({"--summary", folder / "none.mbproj"}), damaged("none.mbproj"));
    for (const std::string& text :
         {std::string(), std::string("{\"format\": 1}"), std::string(100 << 20, '[')}) {
        folder.file("bad.mbproj/project.json", text);
        EXPECT_EQ(murboWith({"--summary", folder / "bad.mbproj"}), damaged("bad.mbproj"));
        EXPECT_EQ(murboWith({"--add-files", folder / "bad.mbproj", movie}), damaged("bad.mbproj"));
        EXPECT_EQ(fs::file_size(folder / "bad.mbproj/project.json"), text.size());
    }
    folder.file("newer.mbproj/project.json", "{\"format\": 2, \"clips\": \"another shape\"}");
    EXPECT_EQ(murboWith({"--export", folder / "newer.mbproj", "V1", folder / "x.mp4"}),
              failure("“newer.mbproj” was made by a newer version of Murbo. Update Murbo to open it."));

    folder.file("bad.mbproj/project.json", "{\"format\": 1}");
    EXPECT_THAT(
        murboWith({"--summary", folder / "bad.mbproj"}, "MURBO_DEBUG=").out,
        testing::ContainsRegex("^error: .*\nmurbo::ProjectError: .*; from murbo::JsonProblem: .*missing\n$"));
}

TEST_F(Headless, stillsAreNamedAfterVideoAndTime) {
    addVideo();
    const auto into = folder / "stills/here";
    EXPECT_EQ(murboWith({"--still", project, "v1", "0.1,abc,,0.4,nan", into}),
              printed((into / "V1 000.10.jpg").string() + "\n" + (into / "V1 000.40.jpg").string()));
    EXPECT_THAT(probed(into / "V1 000.40.jpg"), StartsWith("mjpeg,1080,1920,"));
    EXPECT_EQ(murboWith({"--still", project, "V1", ",x", folder / "none"}), (Ran{0, ""}));
    EXPECT_EQ(murboWith({"--still", project, "V2", "1", into}), failure("The project has no video V2."));
    EXPECT_THAT(murboWith({"--still", project, "V1", "0.1", project / "stills"}).out, StartsWith("error: "));
    EXPECT_FALSE(fs::exists(project / "stills"));
    fs::create_symlink(project / "project.json", into / "V1 000.20.jpg");
    EXPECT_THAT(murboWith({"--still", project, "V1", "0.2", into}).out, StartsWith("error: "));
    EXPECT_EQ(murboWith({"--summary", project}).code, 0);
    folder.file("in the way");
    EXPECT_THAT(murboWith({"--still", project, "V1", "1", folder / "in the way"}).out, StartsWith("error: "));
}

TEST_F(Headless, aVideoIsExportedWithItsSubtitles) {
    addVideo();
    const auto to = folder / "out \"1\".mp4";
    EXPECT_EQ(murboWith({"--export", project, "v1", to, "--srt"}), printed(to.string() + " 25 fps"));
    EXPECT_EQ(probed(to), "h264,1080,1920,25/1,13\naac,0/0,25\n");
    EXPECT_EQ(contentsOf(folder / "out \"1\".srt"), "1\n00:00:00,000 --> 00:00:00,500\nสวัสดี 👋\n");

    EXPECT_EQ(murboWith({"--export", project, "V1", to, "--fps", "10"}), printed(to.string() + " 10 fps"));
    for (const char* rate : {"0", "-5", "1e9"})
        EXPECT_THAT(murboWith({"--export", project, "V1", to, "--fps", rate}).out, StartsWith("error: "))
            << rate;
    EXPECT_THAT(murboWith({"--export", project, "V1", folder / "none/x.mp4"}).out, StartsWith("error: "));
    EXPECT_THAT(probed(to), StartsWith("h264,1080,1920,10/1,"));

    // What is missing is black.
    fs::remove(movie);
    EXPECT_EQ(murboWith({"--export", project, "V1", to}), printed(to.string() + " 30 fps"));
    EXPECT_EQ(murboWith({"--still", project, "V1", "0.2", folder / "s"}).code, 0);
}

TEST_F(Headless, anInterruptedExportLeavesNothing) {
    addVideo(200);
    folder.file("out/old.mp4", "old");
    const auto command =
        quoted(MURBO_PROGRAM) + " --export " + quoted(project) + " V1 " + quoted(folder / "out/old.mp4");
    // With job control, or the shell would have its background jobs ignore Ctrl-C.
    for (const std::string signal : {"INT", "TERM"}) {
        const auto script = "set -m; " + command +
                            " & job=$!; { sleep 60; kill -KILL $job; } >/dev/null & sleep 1.5; kill -" +
                            signal + " $job; wait $job; code=$?; kill -- -$!; exit $code";
        EXPECT_EQ(shell("bash -c " + quoted(script)), failure("The export was cancelled.")) << signal;
        EXPECT_EQ(contentsOf(folder / "out/old.mp4"), "old");
        EXPECT_EQ(entriesIn(folder / "out"), 1);
    }
}

TEST_F(Headless, aProjectThatIsOpenElsewhereIsReadAndNotChanged) {
    const auto lock = PackageLock::lock(project);
    const auto open = failure("“p.mbproj” is open in Murbo. Close it there first.");
    EXPECT_EQ(murboWith({"--add-files", project, movie}), open);
    EXPECT_EQ(murboWith({"--add-stream", project, movie}), open);
    EXPECT_EQ(murboWith({"--transcribe", project, "all"}), open);
    EXPECT_EQ(murboWith({"--summary", project}).code, 0);
}

TEST_F(Headless, commandsAreTriedInTheirOrderAndWithEnoughWords) {
    const std::vector<std::string> lacking[] = {{},
                                                {"--still", project, "V1", "1.5"},
                                                {"--add-files", project},
                                                {"--export", project, "V1"},
                                                {"--new"},
                                                {"nonsense"},
                                                {"--SUMMARY", project}};
    for (const auto& words : lacking) {
        const auto ran = murboWith(words);
        EXPECT_EQ(ran.code, 1);
        EXPECT_THAT(ran.out, HasSubstr("--add-stream <project> <recording> [<markers>]"));
    }
    EXPECT_THAT(murboWith({"--still", project, "V9", "1", "x", "--export", project, "V8", "x"}).out,
                HasSubstr("V9"));
    EXPECT_THAT(murboWith({"--export", project, "V8", "x", "--help"}).out, HasSubstr("V8"));
    EXPECT_EQ(murboWith({"--summary", project, "--new", folder / "not.mbproj"}).code, 0);
    EXPECT_TRUE(fs::exists(folder / "not.mbproj")); // --new comes before --summary
    EXPECT_THAT(murboWith({"--mcp"}).out, StartsWith("error: "));
    EXPECT_THAT(murboWith({"--version"}).out,
                testing::MatchesRegex("Murbo [0-9.]+\n(Cut-outs leave .* not installed.\n)?"));
}

TEST_F(Headless, aFolderThatMayNotBeWrittenSaysSo) {
    addVideo();
    const auto before = projectFile();
    // Root may write everywhere, so it takes another's place.
    const std::string asAnother = geteuid() == 0 ? "setpriv --reuid=65534 --clear-groups" : "";
    chmod(folder.path.c_str(), 0555);
    chmod(project.c_str(), 0555);
    const auto run = [&](const std::vector<std::string>& words) { return murboWith(words, asAnother).out; };
    if (run({"--version"}).empty()) GTEST_SKIP() << "no other user may run the program";
    EXPECT_THAT(run({"--add-files", project, movie}),
                HasSubstr("error: “project.json” could not be written"));
    EXPECT_THAT(run({"--new", folder / "new.mbproj"}), StartsWith("error: "));
    EXPECT_THAT(run({"--export", project, "V1", folder / "x.mp4"}),
                HasSubstr("error: “x.mp4” could not be written"));
    EXPECT_THAT(run({"--still", project, "V1", "0", folder / "stills"}), StartsWith("error: "));
    chmod(project.c_str(), 0700);
    chmod(folder.path.c_str(), 0700);
    EXPECT_EQ(projectFile(), before);
}

TEST_F(Headless, outputThatNobodyReadsHarmsNothingButAFullDiskIsAFailure) {
    addVideo();
    const auto command = quoted(MURBO_PROGRAM) + " --export " + quoted(project) + " V1 ";
    EXPECT_EQ(shell(command + quoted(folder / "x.mp4") + " | true").code, 0);
    EXPECT_TRUE(fs::exists(folder / "x.mp4") || (sleep(2), fs::exists(folder / "x.mp4")));
    EXPECT_EQ(shell(quoted(MURBO_PROGRAM) + " --summary " + quoted(project) + " 2>&1 >/dev/full"),
              failure("The output could not be written: there is no space left on the disk."));
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
