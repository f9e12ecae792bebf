// Everything by keys: on several layouts, and a whole Short.
#include "tests/scenarios/Scenario.h"
#include "tests/scenarios/ScenarioMedia.h"

#include <map>

using namespace murbo;

namespace {

class ByKeys : public Scenario, public testing::WithParamInterface<const char*> {
protected:
    void TearDown() override {
        if (VirtualScreen::missing().empty()) screen().setLayout("us");
        Scenario::TearDown();
    }
    /// Where the key of a command lies on this layout: letters of the alphabet stay where their letter is,
    /// all others where a US keyboard has them.
    std::string key24(const std::string& usKey) const {
        static const std::map<std::string, std::string> french{
            {"A", "Q"}, {"W", "Z"}, {"Z", "W"}, {"M", ";"}};
        const auto moved = french.find(usKey);
        return std::string(GetParam()) == "fr" && moved != french.end() ? moved->second : usKey;
    }
    void press(const std::string& usKey) { key(key24(usKey)); }
    void pressUntil(const std::string& usKey, const std::string& what, const std::function<bool()>& holds) {
        press(usKey);
        until(usKey + ": " + what, holds);
    }
    void undo(const std::function<bool()>& holds) {
        hold("Ctrl");
        press("Z");
        letGo("Ctrl");
        until("Ctrl+Z takes it back", holds);
    }
    bool plays(const std::string& words) { return find("Button", words, "Video viewer").has_value(); }

    void tools() {
        const std::pair<const char*, const char*> all[] = {
            {"T", "Trim"}, {"B", "Blade"}, {"H", "Hand"}, {"A", "Select"}};
        for (const auto& [letter, name] : all)
            pressUntil(letter, name, [&] { return see("Button", name).checked; });
        const std::pair<const char*, const char*> switches[] = {{"S", "Skimming"}, {"N", "Snapping"}};
        for (const auto& [letter, name] : switches)
            for (int time = 0; time < 2; ++time) {
                const bool was = see("Button", name).checked;
                pressUntil(letter, name, [&] { return see("Button", name).checked != was; });
            }
    }
    void transport() {
        key("Home");
        pressUntil("Space", "plays", [&] { return plays("Pause"); });
        pressUntil("K", "stops", [&] { return plays("Play"); });
        pressUntil("L", "plays", [&] { return plays("Pause"); });
        pressUntil("J", "plays backward",
                   [&] { return time("Video viewer").find("−") != std::string::npos || plays("Play"); });
        press("K");
        key("Home");
    }
    void framing() {
        const auto shots = [this] { return video().look ? video().look->shots.size() : 0; };
        for (const auto* number : {"2", "3", "1", "Z"}) {
            const auto stood = onDisk();
            pressUntil(number, "a shot", [&] { return onDisk() != stood && shots() > 0; });
            undo([&] { return onDisk() == stood; });
        }
    }
    void marks() {
        clickOn("ListItem", "C02,", "Browser");
        until("the clip is held", [&] { return see("Button", "Play", "Source viewer").enabled; });
        const auto stood = onDisk();
        pressUntil("M", "a mark", [&] { return onDisk() != stood; });
        undo([&] { return onDisk() == stood; });
        pressUntil("P", "a bookmark", [&] { return onDisk().bookmarks.size() == 1; });
        undo([&] { return onDisk() == stood; });
        pressUntil("F", "a favourite", [&] { return onDisk().clips[1].rating == 1; });
        pressUntil("U", "no rating", [&] { return !onDisk().clips[1].rating; });
        pressUntil("Delete", "rejected", [&] { return onDisk().clips[1].rating == -1; });
        undo([&] { return !onDisk().clips[1].rating; });
    }
    void ranges() {
        key("Home");
        key("Shift+Right");
        press("I");
        key("Shift+Right", 2);
        press("O");
        const auto& cuts = video().cuts;
        pressUntil("E", "the range at the end", [&] { return video().cuts.size() == 4; });
        EXPECT_NEAR(cuts.back().end - cuts.back().start, 2, 0.01) << "I and O";
        press("X");
        pressUntil("W", "the whole clip", [&] { return video().cuts.size() > 4; });
        for (int at = 0; at < 2; ++at) {
            hold("Ctrl");
            press("Z");
            letGo("Ctrl");
        }
        until("both are undone", [&] { return video().cuts.size() == 3; });
    }
};

}

TEST_P(ByKeys, eachOfTheTwentyFourDoesItsWork) {
    if (!screen().setLayout(GetParam()))
        GTEST_SKIP() << "This screen's keyboard has no layout " << GetParam();
    open(scenario::cutVideo());
    clickOn("ListItem", "Clips");
    click(block("Cut", 2));
    tools();
    transport();
    framing();
    marks();
    ranges();
    screen().setLayout("us");
    undoToStart();
}

INSTANTIATE_TEST_SUITE_P(Layouts, ByKeys, testing::Values("us", "th", "ru", "fr"),
                         [](const auto& layout) { return std::string(layout.param); });

using KeysAlone = Scenario;

TEST_F(KeysAlone, aShortIsMadeFromTheFirstToTheLastStep) {
    open(scenario::footage());
    const auto out = folder / "out";
    std::filesystem::create_directories(out);
    const auto holding = [&](const char* tag) {
        until(std::string(tag) + " is held", [&] {
            const auto row = find("ListItem", std::string(tag) + ",", "Browser");
            return row && row->selected;
        });
    };
    key("Shift+F6", 2); // from the timeline past the viewers to the browser
    until("the browser has the keys", [&] { return see("List", "Browser").focused; });
    key("Down");
    holding("C01");
    key("E");
    until("one clip is in", [&] { return video().cuts.size() == 1; });
    key("Down", 2);
    holding("C02");
    key("E");
    until("another is in", [&] { return video().cuts.size() == 2; });
    key("F6", 2);
    until("the timeline has the keys", [&] { return see("List", "Timeline of V1").focused; });
    key("Ctrl+Home");
    until("the first cut is picked", [&] { return block("Cut", 1).selected; });
    key("Home");
    key("Shift+Right", 2);
    key("Alt+]");
    until("it is trimmed", [&] { return video().cuts[0].length() < 2.1; });
    key("Ctrl+Right");
    until("the second is picked", [&] { return block("Cut", 2).selected; });
    key("Return");
    until("the playhead is at its start", [&] { return seconds("Video viewer") > 1.9; });
    key("Shift+Right");
    key("Alt+[");
    until("it is trimmed", [&] { return video().cuts[1].length() < 11.1; });
    key("3");
    until("it is framed", [&] { return video().look && !video().look->shots.empty(); });
    key("Home");
    key("Shift+Right", 3);
    key("Alt+]");
    until("it is short", [&] { return video().length() < 3.5; });
    key("Ctrl+E");
    until("the sheet has the keys", [&] { return see("EditableText", "Save as").focused; });
    key("Tab");
    until("the folder has the keys", [&] { return see("EditableText", "Folder").focused; });
    key("Ctrl+A");
    type(out.string());
    key("Ctrl+Return");
    until(
        "the movie is there", [&] { return entriesIn(out) == 1 && find("Button", "Show in Folder"); }, 90);
    key("Escape");
    RecordProperty("keys", pressed());
    std::printf("A Short of two clips took %d presses of keys, %zu of them to type the folder\n", pressed(),
                out.string().size());
    undoToStart();
}
