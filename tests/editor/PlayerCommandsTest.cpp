#include "app/editor/commands/PlayerCommands.h"
#include "tests/editor/TwoCuts.h"

using namespace murbo;

namespace {

/// Both players loaded, the video's at 5 s and the source's at 25 s.
class TwoPlayers : public TwoCuts {
public:
    TwoPlayers() {
        (*this)(R"(["set","heldClip","C01"])");
        (*this)(R"(["seek",5])");
        (*this)(R"(["source.seek",25])");
    }
    std::pair<double, double> times() { return {editor().playback.time(), editor().source.time()}; }
    std::pair<double, double> rates() { return {editor().playback.rate(), editor().source.rate()}; }
};

using Both = std::pair<double, double>;

}

TEST(PlayerCommands, eachPlayerGoesByItsOwnName) {
    TwoPlayers lines;
    EXPECT_EQ(lines.times(), Both(5, 25));
    for (const auto& [line, times, rates] : {std::tuple{R"(["step",-1.5])", Both(3.5, 25), Both(0, 0)},
                                             {R"(["source.step",2])", Both(3.5, 27), Both(0, 0)},
                                             {R"(["shuttle",false])", Both(3.5, 27), Both(-1, 0)},
                                             {R"(["source.shuttle",true])", Both(3.5, 27), Both(-1, 1)},
                                             {R"(["playPause"])", Both(3.5, 27), Both(0, 1)},
                                             {R"(["source.playPause"])", Both(3.5, 27), Both(0, 0)}}) {
        lines(line);
        EXPECT_EQ(lines.rates(), rates) << line;
    }
}
