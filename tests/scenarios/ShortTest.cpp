// A Short from footage to movie, by keys alone and by mouse alone; how much that takes is printed.
#include "tests/scenarios/Scenario.h"
#include "tests/scenarios/ScenarioMedia.h"

#include <chrono>

using namespace murbo;

namespace {

class Short : public Scenario {
protected:
    void begin() {
        putInHome({scenario::bars(), scenario::plain(), scenario::talk()});
        started = std::chrono::steady_clock::now();
        start({});
    }
    void tell(const std::string& what, int count) {
        const std::chrono::duration<double> took = std::chrono::steady_clock::now() - started;
        RecordProperty(what, count);
        std::printf("A Short of two clips took %d %s and %.1f s\n", count, what.c_str(), took.count());
    }
    std::size_t cuts() { return video().cuts.size(); }
    std::size_t overlays() { return video().look ? video().look->overlays.size() : 0; }
    std::string style() {
        const auto& look = video().look;
        return look && look->captions.style ? look->captions.style->base.value_or("") : "";
    }
    bool focused(const char* role, const char* name) { return see(role, name).focused; }
    /// The movie is whole: its length is that of the video.
    void finish() {
        untilAtLast("the movie is there", [&] { return find("Button", "Show in Folder").has_value(); });
        std::filesystem::path movie;
        for (const auto& entry : std::filesystem::directory_iterator(home / "home/Videos"))
            if (entry.path().extension() == ".mp4") movie = entry.path();
        const auto length =
            made::output("ffprobe -v error -show_entries format=duration -of csv=p=0 " + made::quoted(movie));
        EXPECT_NEAR(std::atof(length.c_str()), video().length(), 0.1);
    }

    std::chrono::steady_clock::time_point started;
};

}

TEST_F(Short, byKeysAlone) {
    begin();
    makeProject("falls");
    before = onDisk();
    key("Ctrl+I");
    addAllInHome(3);
    until("three clips are there", [&] { return onDisk().clips.size() == 3; });

    palette("go to cl");
    until("the clips have the keys", [&] { return focused("List", "Browser"); });
    key("Down");
    seesHeld("C01");
    key("Shift+Right I Shift+Right*3 O Ctrl+N");
    until("a title can be typed", [&] { return see("EditableText", "Title", "New Video").focused; });
    type("falls");
    key("Return");
    until("there is a video", [&] { return onDisk().videos.size() == 1; });
    until("the browser has the keys again", [&] { return focused("List", "Browser"); });
    key("E");
    until("the range is in it", [&] { return cuts() == 1; });
    EXPECT_NEAR(video().cuts[0].length(), 3, 0.01);
    palette("go to cl");
    see("ListItem", "C02,", "Browser");
    key("Down");
    seesHeld("C02");
    key("E");
    until("a second clip is in it", [&] { return cuts() == 2; });

    key("F6", 2);
    until("the timeline has the keys", [&] { return focused("List", "Timeline of V1"); });
    key("Home Shift+Right Ctrl+B");
    until("the first is in two", [&] { return cuts() == 3; });
    key("Down Shift+Right Alt+[");
    until("one is trimmed", [&] { return video().length() < 6.5; });

    key("Ctrl+3 F6");
    until("the tabs have the keys", [&] { return focused("PageTabList", "Tabs of the inspector"); });
    for (int at = 0; at < 8 && !focused("RadioButton", "Clean"); ++at) {
        const auto had = withKeys();
        key("Tab");
        until("the keys have gone on", [&] { return withKeys() != had; });
    }
    ASSERT_TRUE(focused("RadioButton", "Clean"));
    key("Return");
    until("it is the video's", [&] { return style() == "clean"; });

    palette("go to pl");
    until("the playbooks have the keys", [&] { return focused("List", "Library"); });
    see("ListItem", "", "Library");
    key("Return");
    until("one lies over the picture", [&] { return overlays() == 1; });

    key("Ctrl+E");
    until("the sheet is there", [&] { return focused("EditableText", "Save as"); });
    key("Ctrl+Return");
    finish();
    tell("presses of keys", pressed());
    key("Escape");
    undoToStart();
}

TEST_F(Short, byMouseAlone) {
    begin();
    clickOn("Button", "New Project");
    clickOn("Button", "Create");
    see("List", "Timeline");
    package = home / "home/Videos/Untitled.mbproj";
    before = onDisk();
    clickOn("Button", "Menus");
    clickOn("MenuItem", "File");
    clickOn("MenuItem", "Add Footage");
    clickOn("Button", "Choose Files");
    clickOn("ListItem", "footage", "Files to choose");
    for (const auto* file : {"bars.mp4", "plain.mp4", "talk.mp4"})
        clickOn("ListItem", file, "Files to choose");
    see("Button", "Add 3 Files");
    until("all are looked at", [&] { return see("Button", "Add 3 Files").enabled; });
    clickOn("Button", "Add 3 Files");
    until("three clips are there", [&] { return onDisk().clips.size() == 3; });

    turnTo("Clips");
    holdClip("C01");
    const auto strip = still("Graphic", "Waveform");
    for (const auto& [share, button] : {std::pair(1.0 / 6, "Mark start"), {4.0 / 6, "Mark end"}}) {
        click(strip.at(share));
        until("the playhead is there", [&] { return std::abs(seconds("Source viewer") - 6 * share) < 0.1; });
        clickOn("Button", button);
    }
    clickOn("Button", "Add to end");
    until("a video begins", [&] { return cuts() == 1; });
    EXPECT_NEAR(video().cuts[0].length(), 3, 0.1);
    turnTo("Clips");
    drag(still("ListItem", "C02,", "Browser").middle(),
         {block("Cut", 1).at(0.95).x, block("Cut", 1).middle().y});
    until("a second clip is in it", [&] { return cuts() == 2; });

    clickOn("Button", "Blade");
    click(block("Cut", 1).at(0.4));
    until("the first is in two", [&] { return cuts() == 3; });
    clickOn("Button", "Select");
    const auto last = block("Cut", 3);
    drag({last.x + last.width - 3, last.middle().y}, {last.x + last.width * 0.6, last.middle().y});
    until("one is trimmed", [&] { return video().cuts[2].length() < 3; });

    clickOn("PageTab", "Captions");
    clickOn("RadioButton", "Clean");
    until("the style is the video's", [&] { return style() == "clean"; });
    turnTo("Playbooks");
    const auto book = still("ListItem", "", "Library");
    const auto list = still("List", "Timeline of V1");
    drag(book.middle(), {block("Cut", 1).middle().x, list.y + list.height - 20});
    until("one lies over the picture", [&] { return overlays() == 1; });

    clickOn("Button", "Export", "Top bar");
    clickOn("Button", "Export", "Export");
    finish();
    clickOn("Button", "Done");
    tell("clicks and drags", clicked());
    undoToStart();
}
