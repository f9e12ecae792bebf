// Players by their keys, and what is done while they play.
#include "tests/scenarios/Scenario.h"
#include "tests/scenarios/ScenarioMedia.h"

using namespace murbo;

namespace {

class Playing : public Scenario {
protected:
    void openLong() {
        auto project = scenario::cutVideo();
        auto& cuts = project.videos.edit()[0].cuts.edit();
        cuts = {{.source = project.sources[1].id, .start = 0, .end = 12},
                {.source = project.sources[0].id, .start = 0, .end = 6}};
        open(project);
        block("Cut", 2);
        until("the video can be played", [&] { return see("Button", "Play", "Video viewer").enabled; });
    }
    bool goesAt(const std::string& rate) {
        return find("StaticText", "Speed " + rate, "Video viewer").has_value();
    }
};

}

TEST_F(Playing, keysShuttleStepAndGoHome) {
    openLong();
    key("End");
    until("it stands at the end", [&] { return seconds("Video viewer") > 17.9; });
    key("J");
    until("it plays backward", [&] { return goesAt("−1×"); });
    key("J");
    until("twice as fast", [&] { return goesAt("−2×"); });
    until("there is something to play", [&] { return seconds("Video viewer") < 14; });
    key("L");
    until("forward again", [&] { return !goesAt("−2×"); });
    until("and plays", [&] { return find("Button", "Pause", "Video viewer").has_value(); });
    key("K");
    until("it stands", [&] { return find("Button", "Play", "Video viewer").has_value(); });
    key("Home");
    until("it is at the start", [&] { return time("Video viewer") == "0:00.00"; });
    hold("K");
    key("L", 4);
    letGo("K");
    until("four frames on", [&] { return time("Video viewer") == "0:00.13"; });
    hold("K");
    key("J");
    letGo("K");
    until("one back", [&] { return time("Video viewer") == "0:00.10"; });
    key("Down");
    until("at the edit", [&] { return time("Video viewer") == "0:12.00"; });
    EXPECT_EQ(onDisk(), before);
}

TEST_F(Playing, framingIsCutWhileItPlays) {
    openLong();
    key("Home Space");
    std::vector<double> pressed;
    for (const auto* name : {"1", "2", "3"}) {
        const auto shots = video().look ? video().look->shots.size() : 0;
        const double from = seconds("Video viewer");
        until("it has played on", [&] { return seconds("Video viewer") > from + 0.3; });
        key(name);
        until("a shot is there", [&] { return video().look && video().look->shots.size() > shots; });
        pressed.push_back(seconds("Video viewer"));
    }
    key("Space");
    const auto& shots = *video().look->shots;
    ASSERT_GE(shots.size(), 3);
    EXPECT_TRUE(std::ranges::is_sorted(shots, {}, &Shot::at));
    EXPECT_LE(shots.back().at, pressed.back() + 0.05);
    EXPECT_EQ(shots.back().layout, Shot::Layout::face);
    const auto stood = shots.size();
    const auto zoom = shots.back().zoom;
    key("Z");
    until("it punches in", [&] {
        const auto& now = *video().look->shots;
        return now.size() > stood || now.back().zoom != zoom;
    });
    undoToStart();
}

TEST_F(Playing, rowsAreMutedAndHeardAlone) {
    openLong();
    clickOn("Button", "Mute Video");
    until("the row is muted on disk",
          [&] { return video().look && video().look->mix && video().look->mix->isMuted(Lane::video); });
    EXPECT_TRUE(see("Button", "Mute Video").checked);
    const auto muted = onDisk();
    clickOn("Button", "Solo Video");
    until("it is heard alone", [&] { return see("Button", "Solo Video").checked; });
    EXPECT_EQ(onDisk(), muted) << "to listen alone changes nothing";
    EXPECT_FALSE(see("Button", "Undo").enabled) << "neither is a step";
}
