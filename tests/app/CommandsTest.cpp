#include "core/model/package/PackageLock.h"
#include "tests/app/CommandTest.h"

using namespace murbo;
using testing::HasSubstr;
namespace fs = std::filesystem;

using Commands = CommandTest;

TEST_F(Commands, aNewProjectIsMadeOnceAndInSilence) {
    EXPECT_EQ(murboWith({"--new", folder / "new.mbproj"}), (Ran{0, ""}));
    EXPECT_EQ(murboWith({"--new", folder / "new.mbproj/"}), failure("“new.mbproj” is already there."));
    EXPECT_EQ(murboWith({"--new", "./sub/../here.mbproj"}, "", folder.path), (Ran{0, ""}));
    EXPECT_TRUE(fs::exists(folder / "here.mbproj/project.json"));
}

TEST_F(Commands, summaryTellsWhatIsMissing) {
    addVideo();
    fs::remove(movie);
    const auto before = projectFile();
    EXPECT_THAT(murboWith({"--summary", project}).out, HasSubstr("(missing)\n    C01  0:00–0:02  1 line\n"));
    EXPECT_EQ(projectFile(), before);
}

TEST_F(Commands, filesAreAddedAndCounted) {
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
    fs::create_directory(folder / "inner");
    fs::copy_file(sampleMovie(), folder / "inner/a.mp4");
    EXPECT_EQ(murboWith({"--add-files", "../p.mbproj", "."}, "", folder / "inner"),
              printed("added 1 files; 4 clips in all"));
    read = ProjectPackage::read(project);
    EXPECT_EQ(read.sources.back().path, folder / "inner/a.mp4");
    EXPECT_EQ(read.groups.back().name, "inner");
}

TEST_F(Commands, aStreamFindsItsMarkersItself) {
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

TEST_F(Commands, aProjectThatIsOpenElsewhereIsReadAndNotChanged) {
    const auto lock = PackageLock::lock(project);
    const auto open = failure("“p.mbproj” is open in Murbo. Close it there first.");
    EXPECT_EQ(murboWith({"--add-files", project, movie}), open);
    EXPECT_EQ(murboWith({"--add-stream", project, movie}), open);
    EXPECT_EQ(murboWith({"--transcribe", project, "all"}), open);
    EXPECT_EQ(murboWith({"--summary", project}).code, 0);
}
