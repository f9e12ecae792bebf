// The keys of commands on several layouts.
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
};

}

TEST_P(ByKeys, toolsTransportAndFramingWork) {
    if (!screen().setLayout(GetParam()))
        GTEST_SKIP() << "This screen's keyboard has no layout " << GetParam();
    open(scenario::cutVideo());
    clickOn("ListItem", "Clips");
    click(block("Cut", 2));
    tools();
    transport();
    framing();
    screen().setLayout("us");
    undoToStart();
}

INSTANTIATE_TEST_SUITE_P(Layouts, ByKeys, testing::Values("us", "th", "ru", "fr"),
                         [](const auto& layout) { return std::string(layout.param); });
