// Footage that comes in, is heard, has moved.
#include "tests/scenarios/Scenario.h"
#include "tests/scenarios/ScenarioMedia.h"

using namespace murbo;

namespace {

namespace fs = std::filesystem;

/// Twenty-five minutes in tiny pictures.
fs::path recording() {
    return made::file("recording.mp4",
                      "-f lavfi -i testsrc=size=64x36:rate=2:duration=1500 -pix_fmt yuv420p "
                      "-c:v libx264 -preset ultrafast -g 20");
}

class Arriving : public Scenario {
protected:
    /// The times in "C04, 0:10.00 to 3:40.00", and its tag.
    static std::tuple<std::string, double, double> clipIn(const std::string& words) {
        int minutes[2]{};
        double rest[2]{};
        const auto comma = words.find(", ");
        std::sscanf(words.c_str() + comma, ", %d:%lf to %d:%lf", &minutes[0], &rest[0], &minutes[1],
                    &rest[1]);
        return {words.substr(0, comma), minutes[0] * 60 + rest[0], minutes[1] * 60 + rest[1]};
    }
    bool hasModel() {
        const auto model = fs::path(MURBO_SPEECH_MODELS) / "ggml-espeak-q8_0.bin";
        if (!fs::exists(model) || !fs::exists(fs::path(MURBO_TOOLS) / "whisper-cli")) return false;
        fs::create_directories(home / "home/.whisper-models");
        fs::create_symlink(fs::absolute(model), home / "home/.whisper-models/ggml-large-v3-turbo.bin");
        return true;
    }
    std::size_t lines() {
        const auto project = onDisk();
        return project.sources.empty() ? 0 : project.transcript(project.sources[0].id).lines.size();
    }
};

}

TEST_F(Arriving, comesInIsHeardAndIsThereAgainAfterTheProgramIsKilled) {
    const auto speech = fs::path(MURBO_FOOTAGE) / "speech-espeak.wav";
    if (!hasModel() || !fs::exists(speech)) GTEST_SKIP() << "There is no speech model here to hear it with.";
    const auto spoken =
        made::file("a speech.mp4", "-f lavfi -i color=c=navy:size=320x180:rate=10:duration=9 -i " +
                                       made::quoted(speech) + " -pix_fmt yuv420p -c:a aac -shortest");
    putInHome({spoken, scenario::bars(), scenario::plain()});
    const ChildProcess::Variables tools{{"PATH", std::string(std::getenv("PATH")) + ":" MURBO_TOOLS}};
    start({}, tools);
    makeProject("heard");
    key("Ctrl+I");
    addAllInHome(3);
    until("three clips are on disk", [&] { return onDisk().clips.size() == 3; });
    untilAtLast("there are words", [&] { return lines() > 0; });
    holdClip("C01");
    key("Ctrl+2");
    until("the first clip shows them",
          [&] { return see("EditableText", "Transcript").value.find("elcome") != std::string::npos; });
    untilAtLast("nothing is at work", [&] { return !find("ProgressBar", ""); });
    until("the steps are on disk", [&] { return fs::exists(package / "undo.json"); });
    const auto left = onDisk();

    program().process().kill();
    start({}, tools);
    see("List", "Timeline");
    EXPECT_EQ(onDisk(), left);
    holdClip("C01");
    key("Ctrl+2");
    until("its words are there again",
          [&] { return see("EditableText", "Transcript").value.find("elcome") != std::string::npos; });
    key("F6*2 Ctrl+Z");
    until("what was done before the end can be undone", [&] { return onDisk().clips.empty(); });
    EXPECT_TRUE(onDisk().sources.empty());
}

TEST_F(Arriving, clipsOfAStreamAreThoseThatTheSheetDrew) {
    putInHome({recording()});
    std::ofstream(home / "home/footage/recording.csv") << "3:20,boss\n4:00,again\n15:00,fall\n24:50,end\n";
    open(Project());
    key("Ctrl+Shift+I");
    see("Dialog", "Add Stream");
    until("the button has the keys", [&] { return see("Button", "Choose").focused; });
    key("Return");
    until("the folders have the keys", [&] { return see("List", "Files to choose").focused; });
    key("Return");
    until("its files are listed", [&] { return see("EditableText", "Folder").value.ends_with("/footage"); });
    see("ListItem", "recording.mp4", "Files to choose");
    key("Return");
    see("StaticText", "4 markers from recording.csv");
    const auto list = see("List", "3 clips, C01 to C03").name;
    std::vector<std::string> drawn;
    for (const auto& item : items())
        if (item.role == "ListItem" && item.name.starts_with("C0")) drawn.push_back(item.name);
    key("Ctrl+Return");
    until("the stream is there", [&] { return onDisk().clips.size() == 3; });
    const auto project = onDisk();
    ASSERT_EQ(drawn.size(), project.clips.size()) << list;
    for (std::size_t at = 0; at < drawn.size(); ++at) {
        const auto [tag, from, to] = clipIn(drawn[at]);
        const auto& clip = project.clips[at];
        EXPECT_EQ(tag, clip.tag());
        EXPECT_NEAR(from, clip.start, 0.01);
        EXPECT_NEAR(to, clip.end, 0.01);
    }
    EXPECT_NEAR(project.clips[0].start, 50, 0.01);
    EXPECT_NEAR(project.clips[0].end, 300, 0.01) << "two markers near each other are one clip";
    EXPECT_NEAR(project.clips[2].end, 1500, 0.01) << "it ends with the recording";
    undoToStart();
}

TEST_F(Arriving, thatHasMovedIsFoundAllAtOnce) {
    auto project = scenario::cutVideo();
    for (auto& source : project.sources.edit()) {
        const auto name = fs::path(source.path).filename();
        folder.file("moved/deep/readme");
        fs::copy(source.path, folder / "moved/deep" / name);
        source.path = (folder / "old" / name).string();
    }
    open(project);
    for (std::size_t number = 1; number <= 3; ++number)
        EXPECT_NE(block("Cut", number).name.find("file not found"), std::string::npos) << number;
    turnTo("Missing, 3");
    clickOn("ListItem", "bars.mp4", "Browser");
    see("StaticText", "The file of this footage was not found");
    clickOn("Button", "Find", "Source viewer");
    until("the folder can be typed", [&] { return see("EditableText", "Folder").focused; });
    typeOver("Folder", (folder / "moved").string());
    key("Return");
    see("AlertMessage", "Found 3 missing files");
    until("none is missing", [&] { return block("Cut", 1).name.find("not found") == std::string::npos; });
    until("the paths are on disk", [&] {
        const auto found = onDisk();
        return std::ranges::all_of(found.sources, [](const auto& one) { return fs::exists(one.path); });
    });
    EXPECT_FALSE(find("Button", "Undo").value_or(ScreenItem()).enabled) << "finding files is no step";
    until("it can be played", [&] { return see("Button", "Play", "Source viewer").enabled; });
}
