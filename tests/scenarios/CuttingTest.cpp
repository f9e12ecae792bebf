// From footage to cuts: marks, blades, trims, snapping.
#include "tests/scenarios/Scenario.h"
#include "tests/scenarios/ScenarioMedia.h"

using namespace murbo;

namespace {

class Cutting : public Scenario {
protected:
    void holdOfClips(const std::string& tag) {
        turnTo("Clips");
        holdClip(tag);
    }
    /// The playhead by a press on the ruler above the timeline.
    void goTo(double time) {
        const auto first = block("Cut", 1);
        const auto list = see("List", "Timeline");
        const double scale = pointsPerSecond();
        click({first.x + time * scale, list.y + 10});
        until("the playhead is there",
              [&] { return std::abs(seconds("Video viewer") - time) < 1.5 / scale + 0.02; });
    }
    /// The time of the picture that a drag of an edge shows in the source viewer; −1 for none.
    double edgeShown() {
        const auto item = find("StaticText", "Edge ", "Source viewer");
        int minutes = 0;
        double rest = -1;
        if (item) std::sscanf(item->name.c_str(), "Edge %d:%lf", &minutes, &rest);
        return minutes * 60 + rest;
    }
    double pointsPerSecond() { return block("Cut", 1).width / video().cuts[0].length(); }
    std::size_t cuts() { return video().cuts.size(); }
};

}

TEST_F(Cutting, aMarkedRangeGoesToTheEndAndAnotherIntoTheMiddle) {
    open(scenario::footage());
    holdOfClips("C01");
    key("Home Shift+Right I Shift+Right*2 O E");
    until("a video begins", [&] { return cuts() == 1; });
    EXPECT_NEAR(video().cuts[0].start, 1, 0.001);
    EXPECT_NEAR(video().cuts[0].end, 3, 0.001);
    holdOfClips("C03");
    key("E");
    until("the whole clip comes after it", [&] { return cuts() == 2; });
    const auto between = onDisk();
    goTo(1.5);
    holdOfClips("C02");
    key("W");
    until("the clip goes in where the playhead is", [&] { return cuts() > 2; });
    const auto& made = video();
    EXPECT_EQ(made.cuts[1].source, before.sources[1].id);
    takeBackTo(between);
    key("Ctrl+Z");
    until("and one more the end", [&] { return cuts() == 1; });
    undoToStart();
}

TEST_F(Cutting, theBladeCutsADragPutsInOrderAndDeleteGoesOn) {
    open(scenario::cutVideo());
    key("B");
    until("the blade is taken", [&] { return see("Button", "Blade").checked; });
    const auto second = block("Cut", 2);
    const double scale = pointsPerSecond();
    click({second.x + scale, second.y + second.height / 2});
    until("there are four", [&] { return cuts() == 4; });
    EXPECT_NEAR(video().cuts[1].end, 1.5, 0.05);
    click({block("Cut", 1).x + scale, second.y + second.height / 2});
    until("there are five", [&] { return cuts() == 5; });
    key("A");
    until("the arrow is taken", [&] { return see("Button", "Select").checked; });

    const auto last = video().cuts[4].id;
    const auto first = block("Cut", 1);
    drag(block("Cut", 5).middle(), {first.x + 2, first.y + first.height / 2});
    until("the last is the first", [&] { return video().cuts[0].id == last; });
    EXPECT_EQ(cuts(), 5);

    pick("Cut", 2);
    const auto kept = video().cuts[3].id;
    key("Delete");
    until("it is gone", [&] { return cuts() == 4; });
    until("the neighbour has the pick", [&] { return block("Cut", 2).selected; });
    key("Delete");
    until("the neighbour too", [&] { return cuts() == 3; });
    EXPECT_EQ(video().cuts[1].id, kept);
    undoToStart();
}

TEST_F(Cutting, anEdgeIsTrimmedByMouseAndByKeysEachOneStep) {
    open(scenario::cutVideo());
    const auto first = block("Cut", 1);
    const double scale = pointsPerSecond();
    const ScreenPoint edge{first.x + first.width - 3, first.y + first.height / 2};
    moveSeen(edge);
    screen().press();
    moveSeen({edge.x - 0.3 * scale, edge.y});
    moveSeen({edge.x - 0.6 * scale, edge.y});
    until("the source viewer shows the edge", [&] { return std::abs(edgeShown() - 2.4) < 0.1; });
    screen().release();
    until("the cut is shorter", [&] { return video().cuts[0].end < 2.7; });
    EXPECT_NEAR(video().cuts[0].end, 2.4, 0.1);
    EXPECT_NEAR(video().cuts[0].start, 1, 0.001);
    until("it plays round the edit", [&] { return find("Button", "Pause", "Video viewer").has_value(); });
    until("and stops", [&] { return find("Button", "Play", "Video viewer").has_value(); });
    const auto trimmed = onDisk();
    takeBackTo(before);
    key("Ctrl+Shift+Z");
    until("and gives it again", [&] { return onDisk() == trimmed; });

    const double start = video().cuts[0].length();
    goTo(start + 1);
    key("Alt+]");
    until("the cut under the playhead ends there", [&] { return video().cuts[1].end < 2.4; });
    EXPECT_NEAR(video().cuts[1].end, 1.5, 0.05);
    takeBackTo(trimmed);

    pick("Cut", 3);
    setTo("Out", "0:02.25");
    until("the cut ends at the time that was typed", [&] { return video().cuts[2].end == 2.25; });
    key("F6"); // out of the field
    takeBackTo(trimmed);
    undoToStart();
}

TEST_F(Cutting, anEdgeCatchesOnAWordAndAltLetsGo) {
    open(scenario::cutVideo());
    // The second cut ends at 2.5 s; what is said in it ends at 1.4 s and begins again at 1.6 s.
    const auto second = block("Cut", 2);
    const double scale = pointsPerSecond();
    const ScreenPoint edge{second.x + second.width - 3, second.y + second.height / 2};
    const double off = 4 / scale; // points from the word: within reach
    ASSERT_LT(8 / scale, 0.2) << "words lie nearer to each other than edges reach";
    moveSeen(edge);
    screen().press();
    moveSeen({edge.x - 0.5 * scale, edge.y});
    moveSeen({edge.x - (0.9 - off) * scale, edge.y});
    screen().release();
    until("it caught on the word", [&] { return std::abs(video().cuts[1].end - 1.6) < 0.0005; });
    takeBackTo(before);

    moveSeen(edge);
    screen().press();
    moveSeen({edge.x - 0.5 * scale, edge.y});
    hold("Alt");
    moveSeen({edge.x - (0.9 - off) * scale, edge.y});
    screen().release();
    letGo("Alt");
    until("it stays where the hand was", [&] { return onDisk() != before; });
    EXPECT_NEAR(video().cuts[1].end, 1.6 + off, 0.5 / scale + 0.001);
    EXPECT_GT(std::abs(video().cuts[1].end - 1.6), 0.001);
    undoToStart();
}

TEST_F(Cutting, whatIsDraggedCatchesOnABookmark) {
    auto project = scenario::cutVideo();
    const auto tone = made::file("tone.wav", "-f lavfi -i sine=duration=0.4");
    project.videos.edit()[0].look.emplace().sounds.edit().push_back(
        {.file = tone.string(), .source = project.sources[0].id, .at = 1.5, .volume = 0.5});
    project.bookmarks.edit().push_back({.number = 1, .source = project.sources[1].id, .at = 1.1});
    open(project);
    const auto sound = block("Sound", 1);
    const double scale = pointsPerSecond();
    // From half a second to a bit beyond the bookmark, which the second cut shows at 2.6 s.
    drag(sound.middle(), {sound.middle().x + 2.1 * scale + 4, sound.middle().y});
    until("it has caught on the bookmark", [&] {
        const auto& now = video().look->sounds[0];
        return now.source == before.sources[1].id && std::abs(now.at - 1.1) < 0.0005;
    });
    undoToStart();
}

TEST_F(Cutting, quietIsTakenOutAsTheMessageSays) {
    auto project = scenario::cutVideo();
    auto& cut = project.videos.edit()[0].cuts.edit()[1];
    cut.start = 0.4;
    cut.end = 11.8;
    open(project);
    const double length = video().length();
    pick("Cut", 2);
    palette("quiet");
    const auto toast = see("AlertMessage", "Took out 1 quiet stretch, ").name;
    until("the cut is in two", [&] { return cuts() == 4; });
    const double lost = length - video().length();
    EXPECT_GT(lost, 3);
    double said = 0;
    std::sscanf(toast.c_str() + toast.find(", ") + 2, "%lf", &said);
    EXPECT_NEAR(said, lost, 0.1) << toast;
    undoToStart();
}
