#pragma once

#include <algorithm>
#include <cstdint>

namespace murbo::Stage {

/// What may still be drawn of one frame, however many playbooks it shows: far more than any design has, and
/// none can hold a frame up for long. What is drawn first, the undermost, takes first; so a frame depends on
/// nothing but what it shows.
struct Budget {
    std::int64_t layers = 2000;
    std::int64_t particles = 5000;
    std::int64_t glyphs = 200;        ///< that particles are made of
    std::int64_t videos = 16;         ///< that play, in those of the usual size
    std::int64_t looks = 256;         ///< changes to a layer's picture, by what they cost
    std::int64_t pixels = 64'000'000; ///< of letters and picture files, before they are scaled
    std::int64_t area = 300 * frame;  ///< that is covered, layer over layer, by what covering costs

    /// What covering all of the frame counts, where nothing is turned or mixed.
    static constexpr std::int64_t frame = 1000;
    /// What a pixel counts that is turned, mixed with those below, or on a curve.
    static constexpr std::int64_t costlyArea = 4;
    /// Pixels that letters and picture files count at least: small ones take their time too.
    static constexpr std::int64_t fewestPixels = 200'000;
    /// Pixels of a video that counts as one.
    static constexpr std::int64_t usualVideo = 1920 * 1080;
    /// What a change counts that looks far round every pixel.
    static constexpr std::int64_t costlyLook = 8;

    /// Takes as many as are wanted, or all that are left; gives how many.
    std::int64_t take(std::int64_t Budget::*what, std::int64_t wanted) {
        const auto taken = std::min(this->*what, wanted);
        this->*what -= taken;
        return taken;
    }
};

}
