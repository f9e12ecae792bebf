#pragma once

#include <string>

namespace murbo {

/// What a movie is written with.
struct MovieSettings {
    int width = 0;                 ///< pixels, even
    int height = 0;                ///< pixels, even
    int rate = 30;                 ///< whole frames a second
    bool sound = true;             ///< AAC, 48 kHz stereo, 192 kbit/s
    std::string preset = "medium"; ///< x264's
    double quality = 18;           ///< x264's constant rate factor; lower is better
    int lookahead = 0;             ///< pictures that the encoder looks ahead; 0 is the preset's
    /// Of the encoder. The same on every machine, as its choices hang on them. With three, what it chooses on
    /// two processors, one movie in ten came out with other bytes (x264 core 164); with six, none of a
    /// hundred did.
    int threads = 6;
};

}
