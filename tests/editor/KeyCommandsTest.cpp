#include "app/editor/commands/KeyCommands.h"
#include "tests/editor/TwoCuts.h"

using namespace murbo;

TEST(KeyCommands, theTransportIsThatOfThePlayerInFocus) {
    TwoCuts lines;
    auto& editor = lines.editor();
    Keys::standard().useStandard();
    lines(R"(["set","heldClip","C03"])");
    for (const std::string focus : {"video", "source"}) {
        lines(R"(["set","focus",")" + focus + "\"]");
        auto& player = focus == "video" ? editor.playback : editor.source;
        auto& other = focus == "video" ? editor.source : editor.playback;
        player.seek(player.span().from + 5);
        for (const auto& [key, rate] :
             {std::pair{"l", 1.0}, {"l", 2.0}, {"k", 0.0}, {"j", -1.0}, {"space", 0.0}}) {
            lines(std::string(R"(["key",")") + key + "\"]");
            EXPECT_EQ(player.rate(), rate) << focus << key;
            EXPECT_EQ(other.rate(), 0) << focus << key;
        }
    }
}
