#pragma once

#include "core/render/sound/SoundMixer.h"

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace murbo {

/// A mix as it sounds while it is played: from a place on, at a rate, forward or backward, at a level. Where
/// it begins, and where mix or level change, it is faded over a few milliseconds, so that nothing clicks.
///
/// One thread at a time may use a feed.
class SoundFeed {
public:
    static constexpr double fastest = 2; ///< the highest rate, either way, at which there is sound

    /// `length` in seconds.
    SoundFeed(std::vector<SoundMix::Track> tracks, double length);

    /// What is read next sounds from `place` on, in seconds, at a signed rate.
    void start(double place, double rate);
    /// Goes on with another mix from what is read next.
    void replace(std::vector<SoundMix::Track> tracks);
    /// A factor, from what is read next.
    void setVolume(double factor) { volume = static_cast<float>(factor); }

    /// Fills interleaved stereo at 48 kHz with what sounds next.
    void read(std::span<float> into);

private:
    void mixed(std::int64_t from, std::span<float> into);
    void sounding(std::span<float> into);
    std::span<const float> stretch(std::int64_t frames);
    void level(std::span<float> into);

    double length;
    SoundMixer mixer;
    std::optional<SoundMixer> leaving; ///< the mix before, while it fades
    double place = 0;                  ///< frames
    double rate = 1;
    float volume = 1;
    float volumeBefore = 0;
    std::vector<float> block; ///< what was mixed last for play at other rates
    std::int64_t blockFrom = 0;
};

}
