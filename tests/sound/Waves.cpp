#include "tests/sound/Waves.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <fstream>
#include <numbers>

namespace murbo::waves {

std::vector<float> made(int frames, const std::function<float(int)>& left,
                        const std::function<float(int)>& right) {
    std::vector<float> samples;
    for (int frame = 0; frame < frames; ++frame) {
        samples.push_back(left(frame));
        samples.push_back(right(frame));
    }
    return samples;
}

std::vector<float> tone(int frames, double hertz, double level) {
    const auto wave = [&](int frame) {
        return static_cast<float>(level * std::sin(2 * std::numbers::pi * hertz * frame / 48000));
    };
    return made(frames, wave, wave);
}

void write(const std::filesystem::path& path, const std::vector<float>& samples) {
    std::ofstream file(path, std::ios::binary);
    const auto number = [&](std::uint32_t value, int bytes) {
        file.write(reinterpret_cast<const char*>(&value), bytes);
    };
    const auto bytes = static_cast<std::uint32_t>(samples.size() * sizeof(float));
    file << "RIFF";
    number(36 + bytes, 4);
    file << "WAVEfmt ";
    number(16, 4);
    number(3, 2); // IEEE floats
    number(2, 2);
    number(48000, 4);
    number(48000 * 8, 4);
    number(8, 2);
    number(32, 2);
    file << "data";
    number(bytes, 4);
    file.write(reinterpret_cast<const char*>(samples.data()), bytes);
}

float peak(const std::vector<float>& samples) {
    float peak = 0;
    for (const float sample : samples) peak = std::max(peak, std::abs(sample));
    return peak;
}

float largestStep(const std::vector<float>& samples) {
    float largest = 0;
    for (std::size_t at = 2; at < samples.size(); ++at)
        largest = std::max(largest, std::abs(samples[at] - samples[at - 2]));
    return largest;
}

double level(const std::vector<float>& samples, int from, int until) {
    double sum = 0;
    for (int frame = from; frame < until; ++frame) sum += double(samples[2 * frame]) * samples[2 * frame];
    return std::sqrt(2 * sum / (until - from));
}

}
