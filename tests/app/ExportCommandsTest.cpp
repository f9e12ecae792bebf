#include "tests/app/CommandTest.h"

#include <sys/stat.h>
#include <unistd.h>

using namespace murbo;
using testing::HasSubstr, testing::StartsWith;
namespace fs = std::filesystem;

namespace {

using ExportCommands = CommandTest;

/// What the streams of a movie or picture are like.
std::string probed(const fs::path& file) {
    return shell(
               "ffprobe -v error -show_entries stream=codec_name,width,height,r_frame_rate,nb_frames "
               "-of csv=p=0 " +
               quoted(file))
        .out;
}

}

TEST_F(ExportCommands, stillsAreNamedAfterVideoAndTime) {
    addVideo();
    const auto into = folder / "stills/here";
    EXPECT_EQ(murboWith({"--still", project, "v1", "0.1,abc,,0.4,nan", into}),
              printed((into / "V1 000.10.jpg").string() + "\n" + (into / "V1 000.40.jpg").string()));
    EXPECT_THAT(probed(into / "V1 000.40.jpg"), StartsWith("mjpeg,1080,1920,"));
    EXPECT_THAT(murboWith({"--still", project, "V1", "0.1", project / "stills"}).out, StartsWith("error: "));
    EXPECT_FALSE(fs::exists(project / "stills"));
    fs::create_symlink(project / "project.json", into / "V1 000.20.jpg");
    EXPECT_THAT(murboWith({"--still", project, "V1", "0.2", into}).out, StartsWith("error: "));
    EXPECT_EQ(murboWith({"--summary", project}).code, 0);
    folder.file("in the way");
    EXPECT_THAT(murboWith({"--still", project, "V1", "1", folder / "in the way"}).out, StartsWith("error: "));
    fs::create_directory(into / "V1 000.30.jpg");
    EXPECT_EQ(murboWith({"--still", project, "V1", "0.3", into}),
              failure("“V1 000.30.jpg” could not be written: it is a folder."));
}

TEST_F(ExportCommands, aVideoIsExportedWithItsSubtitles) {
    addVideo();
    const auto to = folder / "out \"1\".mp4";
    EXPECT_EQ(murboWith({"--export", project, "v1", to, "--srt"}), printed(to.string() + " 25 fps"));
    EXPECT_EQ(probed(to), "h264,1080,1920,25/1,13\naac,0/0,25\n");
    EXPECT_EQ(contentsOf(folder / "out \"1\".srt"), "1\n00:00:00,000 --> 00:00:00,500\nสวัสดี 👋\n");

    EXPECT_EQ(murboWith({"--export", project, "V1", to, "--fps", "10"}), printed(to.string() + " 10 fps"));
    for (const char* rate : {"0", "-5", "1e9"})
        EXPECT_THAT(murboWith({"--export", project, "V1", to, "--fps", rate}).out, StartsWith("error: "))
            << rate;
    EXPECT_THAT(probed(to), StartsWith("h264,1080,1920,10/1,"));

    // What is missing is black.
    fs::remove(movie);
    EXPECT_EQ(murboWith({"--export", project, "V1", to}), printed(to.string() + " 30 fps"));
    EXPECT_EQ(murboWith({"--still", project, "V1", "0.2", folder / "s"}).code, 0);
}

TEST_F(ExportCommands, namesTheFootageThatIsLeftOutOrBlack) {
    const auto remarks = [&](const std::vector<std::string>& words) {
        std::string command = quoted(MURBO_PROGRAM);
        for (const auto& word : words) command.append(" ").append(quoted(word));
        return shell(command + " 2>&1 >/dev/null").out;
    };
    const auto cutOff = folder.file("more/cut.mp4", contentsOf(sampleMovie()).substr(0, 20000));
    folder.file("more/notes.txt");
    const std::string why =
        "“cut.mp4” has no index: the recording or the copying of it was cut off. It cannot be read.";
    EXPECT_EQ(remarks({"--add-files", project, folder / "more"}), why + "\n");
    EXPECT_EQ(remarks({"--add-files", project, movie, folder / "more/notes.txt", folder / "gone.mp4"}),
              "“notes.txt” was left out: its name is not that of a movie.\nThere is no file “gone.mp4”.\n");
    EXPECT_EQ(remarks({"--add-stream", project, cutOff}), why + "\n");

    addVideo();
    const std::vector<std::string> ways[] = {{"--export", project, "V1", folder / "x.mp4", "--fps", "5"},
                                             {"--still", project, "V1", "0", folder / "stills"}};
    for (const auto& words : ways) EXPECT_EQ(remarks(words), "");
    fs::copy_file(cutOff, movie, fs::copy_options::overwrite_existing);
    for (const auto& words : ways) EXPECT_THAT(remarks(words), HasSubstr(" has no index"));
    fs::remove(movie);
    for (const auto& words : ways)
        EXPECT_EQ(remarks(words), "There is no file “" + name + "”. Its cuts are black.\n");
    shell("ffmpeg -nostdin -f lavfi -i testsrc2=s=64x36:r=10:d=2 " + quoted(movie));
    EXPECT_THAT(remarks({"--export", project, "V1", folder / "x.mp4"}), HasSubstr("--fps 30"));
}

TEST_F(ExportCommands, aFolderThatMayNotBeWrittenSaysSo) {
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
