#include "app/editor/commands/PickWords.h"
#include "tests/editor/TwoCuts.h"

using namespace murbo;

TEST(PickWords, passOverWhatIsGone) {
    TwoCuts lines;
    using enum Pick::Kind;
    const Pick gone{cut, UUID::make(), {}}, none{overlay, UUID::make(), {}};
    EXPECT_EQ(
        PickWords::of(lines.editor(),
                      {gone, {caption, lines.line(0).id, {}}, none, {cut, lines.video().cuts[0].id, {}}}),
        "In V1 “One”, these: caption C01.01, cut 1 (C01.01 to C01.02)");
    lines(R"(["delete","V1"])");
    EXPECT_EQ(PickWords::of(lines.editor(), {gone}), "");
}
