#include "platform/media/SoundReader.h"
#include "tests/media/Sounds.h"

#include <gtest/gtest.h>

using namespace murbo;

// Its times are those of the packets' ends, which a writer of 2011 took for their beginnings.
TEST(VorbisTimes, readsVorbisEvenlyWhateverItsTimesMean) {
    MURBO_NEEDS_FFMPEG();
    const std::filesystem::path path = MURBO_FOOTAGE "/actors-battle.webm";
    if (!std::filesystem::exists(path)) GTEST_SKIP() << "The footage is not here.";
    const std::vector<float> truth = made::sound(path);
    SoundReader reader = SoundReader::open(path);
    const auto frames = static_cast<std::int64_t>(truth.size() / 2);
    EXPECT_LT(largestDifference(readAll(reader, frames), truth), 0.001);
}
