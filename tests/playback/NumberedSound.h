#pragma once

#include "app/editor/playback/SoundFeed.h"
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

/// A feed of that file.
struct RampFeed : NumberedSound {
    SoundFeed feed{tracks(), 3};

    /// What it gives next, in frames of stereo.
    std::vector<float> read(int frames) {
        std::vector<float> sound(2 * static_cast<std::size_t>(frames), 9.0F);
        feed.read(sound);
        return sound;
    }
};

/// Which frame of the ramp a sample is.
inline double frameIn(float sample) {
    return sample * 4.0 * second;
}

}
