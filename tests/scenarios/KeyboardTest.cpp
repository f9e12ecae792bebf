// The keys of commands on several layouts.
#include "tests/scenarios/Scenario.h"
#include "tests/scenarios/ScenarioMedia.h"

#include <algorithm>

using namespace murbo;

namespace {

class ByKeys : public Scenario, public testing::WithParamInterface<const char*> {
protected:
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
    std::size_t marksOf(std::int64_t number) const {
        const auto project = onDisk();
        const auto clip = std::ranges::find(project.clips, number, &Clip::number);
        return clip == project.clips.end() ? 0 : clip->marks.size();
    }
    void marks() {
        holdClip("C02");
        const auto stood = onDisk();
        pressUntil("M", "a mark",
                   [&] { return see("ListItem", "C02,", "Browser").selected && marksOf(2) == 1; });
        undo([&] { return onDisk() == stood; });
        pressUntil("P", "a bookmark", [&] { return onDisk().bookmarks.size() == 1; });
        undo([&] { return onDisk() == stood; });
        pressUntil("F", "a favourite", [&] { return onDisk().clips[1].rating == 1; });
        pressUntil("U", "no rating", [&] { return !onDisk().clips[1].rating; });
        pressUntil("Delete", "rejected", [&] { return onDisk().clips[1].rating == -1; });
        undo([&] { return !onDisk().clips[1].rating; });
    }
    void ranges() {
        key("Home Shift+Right");
        press("I");
        key("Shift+Right", 2);
        press("O");
        pressUntil("E", "the range at the end", [&] { return video().cuts.size() == 4; });
        EXPECT_NEAR(video().cuts.back().length(), 2, 0.01) << "I and O";
        press("X");
        pressUntil("W", "the whole clip", [&] { return video().cuts.size() > 4; });
        undo([&] { return video().cuts.size() == 4; });
        undo([&] { return video().cuts.size() == 3; });
    }
};

}

TEST_P(ByKeys, eachOfTheTwentyFourDoesItsWork) {
    if (!setLayout(GetParam())) GTEST_SKIP() << "This screen's keyboard has no layout " << GetParam();
    open(scenario::cutVideo());
    turnTo("Clips");
    click(block("Cut", 2));
    tools();
    transport();
    framing();
    marks();
    ranges();
    setLayout("us");
    undoToStart();
}

INSTANTIATE_TEST_SUITE_P(Layouts, ByKeys, testing::Values("us", "th", "ru", "fr"),
                         [](const auto& layout) { return std::string(layout.param); });

using Rebinding = Scenario;

TEST_F(Rebinding, aKeyThatIsTakenIsSwappedAndThatIsSaid) {
    open(scenario::cutVideo());
    palette("keys");
    until("the list of keys has the keys", [&] { return see("List", "Keys").focused; });
    clickInto("Search the keys");
    type("blade");
    until("no other is listed", [&] { return !find("ListItem", "Select Tool"); });
    clickOn("ListItem", "Blade Tool, B");
    see("AlertMessage", "Press the key that it shall have");
    key("J");
    see("AlertMessage", "J now gives “Blade Tool”; “Play Backward, Faster Each Press” moved to B");
    see("ListItem", "Blade Tool, J");
    key("Escape");
    until("the sheet is closed", [&] { return !find("List", "Keys"); });
    key("J");
    until("J takes the blade", [&] { return see("Button", "Blade").checked; });
    EXPECT_EQ(see("Button", "Blade").description, "J") << "its hint says the new key";
    key("End B");
    until("B plays backward", [&] { return find("StaticText", "Speed −1×", "Video viewer").has_value(); });
    key("K");
    EXPECT_EQ(onDisk(), before);
}
