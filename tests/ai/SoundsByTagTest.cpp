#include "tests/ai/ByTag.h"

using namespace murbo;

using SoundsByTagTest = ByTag;

TEST_F(SoundsByTagTest, soundsLieOnTheirLines) {
    EXPECT_EQ(sounds(R"([{"file": "Hits/boom.wav", "at": "C01.03", "after": 0.5, "volume": 1.5},
                         {"file": "Hits/boom.wav", "at": "C01.02", "after": -1},
                         {"file": "Hits/boom.wav", "at": "C01.01"}])"),
              "V1 has 2 sounds. Left out: C01.01 is not a line the video plays.");
    const auto& made = look().sounds;
    EXPECT_EQ(made[0].file, "media/boom.wav");
    EXPECT_EQ(std::pair(made[0].at, made[0].volume.value_or(0)), std::pair(5.5, 1.0));
    EXPECT_EQ(std::pair(made[1].at, made[1].volume.value_or(0)), std::pair(3.2, 0.7));
    look().sounds.edit()[0].muted = true;
    auto expected = look().sounds[0];
    expected.volume = 0.25;
    EXPECT_EQ(sounds(R"([{"file": "boom.wav", "at": "C01.03", "after": 0.55, "volume": 0.25}])"),
              "V1 has 1 sounds.")
        << "its own by the name that it was told by";
    EXPECT_EQ(look().sounds, List<SoundCue>({expected}));
    EXPECT_EQ(sounds("[]"), "V1 has 0 sounds.");
    EXPECT_TRUE(look().sounds.empty());
}
