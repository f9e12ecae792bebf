#include "app/editor/commands/OverlayCommands.h"
#include "core/playbooks/Playbooks.h"
#include "tests/editor/TwoCuts.h"

using namespace murbo;

TEST(OverlayCommands, whatItsPlaybookSaysOfTheFootagesSoundComesAlong) {
    TwoCuts lines;
    auto loud = Playbook::decode(R"({"name": "Loud", "mute": true, "length": 1, "layers": [{"text": "x"}]})");
    const auto id = Playbooks::write(std::move(loud), {}, "the test").id();
    lines("[\"addOverlay\",\"" + id + "\",3]");
    ASSERT_EQ(lines.look().overlays.size(), 1u);
    EXPECT_EQ(lines.look().overlays[0].mute, true);
    EXPECT_EQ(lines.look().overlays[0].length, 1) << "as long as it is by nature";
}
