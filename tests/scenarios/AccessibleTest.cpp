// What somebody without a mouse, or without eyes, meets: a timeline that is a list, and a way round by keys.
#include "tests/scenarios/Scenario.h"
#include "tests/scenarios/ScenarioMedia.h"

#include <algorithm>

using namespace murbo;

using Accessible = Scenario;

TEST_F(Accessible, theTimelineIsAListThatKeysWalk) {
    open(scenario::cutVideo());
    EXPECT_EQ(see("List", "Timeline of V1").name, "Timeline of V1, 3 cuts, 6 seconds");
    key("Ctrl+Home");
    until("the first is picked",
          [&] { return block("Cut", 1).name == "Cut 1 of 3, C01, 0:00.00 to 0:02.00, picked"; });
    key("Ctrl+Right");
    until("the next is picked",
          [&] { return block("Cut", 2).name == "Cut 2 of 3, C02.01 to C02.02, 0:02.00 to 0:04.00, picked"; });
    key("Ctrl+Shift+Right");
    until("two are picked", [&] { return block("Cut", 3).selected && block("Cut", 2).selected; });
    key("Ctrl+Home Ctrl+Right Ctrl+Down");
    until("a caption below is picked", [&] { return block("Caption", 1).selected; });
    key("Shift+F10");
    const auto menu = see("PopupMenu", "");
    EXPECT_GT(menu.height, 50);
    key("Escape");
    EXPECT_EQ(onDisk(), before);
}

TEST_F(Accessible, theRegionsAreARing) {
    open(scenario::cutVideo());
    std::vector<std::string> names;
    for (int at = 0; at < 8; ++at) {
        const auto stood = withKeys();
        key("F6");
        until("the next region has the keys", [&] { return !withKeys().empty() && withKeys() != stood; });
        if (!names.empty() && withKeys() == names.front()) break;
        names.push_back(withKeys());
    }
    EXPECT_GE(names.size(), 4) << testing::PrintToString(names);
    EXPECT_LE(names.size(), 6) << testing::PrintToString(names);
    const auto has = [&](const char* what) {
        return std::ranges::any_of(names, [&](const auto& one) { return one.find(what) != one.npos; });
    };
    EXPECT_TRUE(has("Timeline of V1")) << testing::PrintToString(names);
    EXPECT_TRUE(has("Browser") || has("ListItem C0")) << testing::PrintToString(names);
}
