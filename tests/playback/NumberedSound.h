#pragma once

#include "core/render/sound/SoundMix.h"
#include "tests/TemporaryFolder.h"
#include "tests/sound/Waves.h"

namespace murbo {

inline constexpr int second = 48000;

/// A file whose every frame holds its own number, as a mix of one track.
struct NumberedSound {
    TemporaryFolder folder;

    std::vector<SoundMix::Track> tracks(double gain = 1) const {
        const auto file = folder / "ramp.wav";
        const auto value = [](int frame) { return static_cast<float>(frame) / (4 * second); };
        if (!std::filesystem::exists(file)) waves::write(file, waves::made(3 * second, value, value));
        return {{.file = file, .pieces = {{0, 3, 0}}, .gains = {{0, 3, gain, gain}}}};
    }
};

/// Which frame of the ramp a sample is.
inline double frameIn(float sample) {
    return sample * 4.0 * second;
}

}
