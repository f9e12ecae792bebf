#include "app/editor/commands/TimelinePicks.h"
#include "tests/editor/Lines.h"

using namespace murbo;
using TimelinePicks::Modifiers;

TEST(TimelinePicks, shiftAddsAndCommandTurnsOver) {
    Lines lines;
    auto& editor = lines.editor();
    const Pick one{Pick::Kind::cut, UUID::make(), {}};
    const Pick two{Pick::Kind::music, UUID::make(), {}};
    const auto after = [&](const Pick& pick, const Modifiers& keys) {
        TimelinePicks::click(editor, pick, keys);
        return TimelinePicks::all(editor);
    };
    using Picks = std::vector<Pick>;
    EXPECT_EQ(after(one, {}), Picks{one});
    EXPECT_EQ(after(two, {.shift = true}), (Picks{one, two}));
    EXPECT_EQ(after(one, {.shift = true}), (Picks{two, one})) << "it stays, as the main one";
    EXPECT_EQ(after(one, {.command = true}), Picks{two});
    EXPECT_EQ(after(one, {.command = true}), (Picks{two, one}));
    EXPECT_EQ(after(two, {.shift = true, .command = true}), Picks{one});
    EXPECT_EQ(after(two, {}), Picks{two});
}
