// Movies that come out while editing goes on.
#include "tests/scenarios/Scenario.h"
#include "tests/scenarios/ScenarioMedia.h"

using namespace murbo;

namespace {

/// The decoded pictures of a movie, as one number.
std::string pictures(const std::filesystem::path& movie) {
    return made::output("ffmpeg -nostdin -v error -i " + made::quoted(movie) + " -map 0:v -f md5 -");
}

class Exporting : public Scenario {
protected:
    /// A video of some cuts, each of that length in seconds.
    void openShort(double length, int count = 1) {
        auto project = scenario::cutVideo();
        auto& cuts = project.videos.edit()[0].cuts.edit();
        cuts.clear();
        for (int cut = 0; cut < count; ++cut)
            cuts.push_back({.source = project.sources[1].id, .start = 0.5, .end = 0.5 + length});
        open(project);
        block("Cut", 1);
        std::filesystem::create_directories(out);
    }
    void begin(const std::string& name) {
        key("Ctrl+E");
        see("EditableText", "Save as");
        until("the name can be typed over", [&] { return see("EditableText", "Save as").focused; });
        key("Ctrl+A");
        type(name);
        click(see("EditableText", "Folder"));
        key("Ctrl+A");
        type(out.string());
        until("the folder is typed", [&] { return see("EditableText", "Folder").value == out.string(); });
        key("Ctrl+Return");
    }
    void finish(const std::filesystem::path& movie) {
        until(
            "the movie is there", [&] { return std::filesystem::exists(movie); }, 120);
        until(
            "nothing is at work", [&] { return !find("ProgressBar", "Exporting"); }, 60);
    }

    std::filesystem::path out = folder / "out";
};

}

TEST_F(Exporting, editingGoesOnAndTheMovieIsThatOfTheCommandLine) {
    openShort(1.5);
    begin("one.mp4");
    see("Button", "Hide");
    key("Escape");
    key("Home");
    key("Right", 20);
    key("Ctrl+B");
    until("a cut is made meanwhile", [&] { return video().cuts.size() == 2; });
    finish(out / "one.mp4");
    key("Ctrl+Z");
    until("it is undone", [&] { return onDisk() == before; });

    program().process().end();
    const auto command = std::string(MURBO_PROGRAM) + " --export " + made::quoted(package) + " V1 " +
                         made::quoted(out / "two.mp4") + " >/dev/null";
    ASSERT_EQ(std::system(command.c_str()), 0);
    EXPECT_EQ(pictures(out / "one.mp4"), pictures(out / "two.mp4"));
    start({"--open", package.string()});
}

TEST_F(Exporting, aStoppedMovieLeavesNothingAndItsPlaceIsFree) {
    openShort(11, 40); // long enough to be stopped
    begin("half.mp4");
    until("the buttons stand in their places", [&] {
        const auto stop = find("Button", "Stop", "Export");
        const auto hide = find("Button", "Hide", "Export");
        return stop && hide && stop->x > 800 && stop->x + stop->width < hide->x;
    });
    clickOn("Button", "Stop", "Export");
    until("it has stopped", [&] { return !find("Button", "Hide", "Export").has_value(); });
    until("nothing is left", [&] { return entriesIn(out) == 0; });
    key("Escape");
    undoToStart();
}
