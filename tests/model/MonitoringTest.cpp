#include "core/model/Monitoring.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(Monitoring, hearsWhatIsSoloedElseWhatIsNotMuted) {
    Mix mix;
    mix.toggleMute(Lane::music);
    EXPECT_TRUE(Monitoring{}.heard(Lane::music, std::nullopt));
    EXPECT_FALSE(Monitoring{}.heard(Lane::music, mix));
    EXPECT_TRUE(Monitoring{{Lane::music}}.heard(Lane::music, mix)) << "solo is heard over a mute";
    EXPECT_FALSE(Monitoring{{Lane::music}}.heard(Lane::video, mix));
}
