#pragma once

namespace murbo {

/// How all sound travels here: interleaved stereo floats, 48,000 frames a second, full scale at ±1.
namespace Sound {
inline constexpr int rate = 48000;
inline constexpr int channels = 2;
}

}
