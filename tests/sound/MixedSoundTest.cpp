#include "core/render/sound/MixedSound.h"
#include "tests/TemporaryFolder.h"
#include "tests/sound/Waves.h"

#include <gtest/gtest.h>

using namespace murbo;

namespace {

constexpr int second = 48000;

/// A rising sound of three seconds as the one track of a mix.
std::vector<SoundMix::Track> tracks(const TemporaryFolder& folder) {
    const auto value = [](int frame) { return static_cast<float>(frame) / (4 * second); };
    waves::write(folder / "rise.wav", waves::made(3 * second, value, value));
    return {{.file = folder / "rise.wav", .pieces = {{0, 3, 0}}, .gains = {}}};
}

}

TEST(MixedSound, comesInBlocksOfHalfASecondToTheLastFrame) {
    const TemporaryFolder folder;
    MixedSound mixed(tracks(folder), 2.25);
    std::vector<std::size_t> sizes;
    std::vector<float> sound;
    while (const auto block = mixed.next()) {
        sizes.push_back(block->size());
        sound.insert(sound.end(), block->begin(), block->end());
    }
    EXPECT_EQ(sizes, (std::vector<std::size_t>{second, second, second, second, second / 2}));
    SoundMixer mixer(tracks(folder), 2.25);
    std::vector<float> whole(sound.size());
    mixer.read(0, whole);
    EXPECT_EQ(sound, whole);
    EXPECT_FALSE(mixed.next()) << "nothing comes after the last";
}

TEST(MixedSound, ofNoLengthIsOverAtOnce) {
    MixedSound mixed({}, 0);
    EXPECT_FALSE(mixed.next());
}

TEST(MixedSound, endsEarlyWhereItIsStopped) {
    const TemporaryFolder folder;
    MixedSound mixed(tracks(folder), 3600);
    ASSERT_TRUE(mixed.next());
    mixed.stop();
    EXPECT_FALSE(mixed.next());
    const MixedSound letGo(tracks(folder), 3600); // its thread ends with it
}
