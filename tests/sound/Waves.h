#pragma once

#include <filesystem>
#include <functional>
#include <vector>

/// Sound files made for a test, and what is measured on sound.
namespace murbo::waves {

/// Interleaved stereo at 48 kHz: `left` and `right` by the frame's number.
std::vector<float> made(int frames, const std::function<float(int)>& left,
                        const std::function<float(int)>& right);
/// A tone on both sides.
std::vector<float> tone(int frames, double hertz, double level);

/// A WAV file of floats at 48 kHz, as exact as they are given.
void write(const std::filesystem::path& path, const std::vector<float>& samples);

/// The largest value on either side.
float peak(const std::vector<float>& samples);
/// The largest step from one frame to the next on either side.
float largestStep(const std::vector<float>& samples);
/// The mean level of a tone over some frames, as the factor on a sine of level 1.
double level(const std::vector<float>& samples, int from, int until);

}
