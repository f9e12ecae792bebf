#include "core/model/Muted.h"
#include "core/model/Video.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(Muted, isWhatTheOwnerTurnedOff) {
    struct Case {
        void (*change)(Video&);
        Muted expected;
    };
    for (const auto& [change, expected] :
         {Case{[](Video&) {}, {}},
          Case{[](Video& v) { v.cuts.edit().emplace_back().muted = true; }, {false, true}},
          Case{[](Video& v) { v.look.emplace().sounds.edit() = {{.muted = true}}; }, {false, true}},
          Case{[](Video& v) { v.look.emplace().music.edit() = {{.muted = true}}; }, {false, true}},
          Case{[](Video& v) { v.look.emplace().mix.emplace().toggleMute(Lane::video); }, {true, false}}}) {
        Video video;
        change(video);
        EXPECT_EQ(hasMuted(video), expected);
    }
}
