#include "tests/media/Made.h"

#include <sstream>

namespace murbo::made {

std::vector<Shown> pictures(const std::filesystem::path& path, const std::string& filter) {
    std::istringstream lines(output("ffmpeg -nostdin -v quiet -noautorotate -i " + quoted(path) +
                                    " -map 0:v:0 -fps_mode passthrough -vf " + filter +
                                    " -enc_time_base -1 -f framecrc -"));
    std::vector<Shown> shown;
    double tick = 0;
    for (std::string line; std::getline(lines, line);) {
        int numerator = 0;
        int denominator = 1;
        long long time = 0;
        unsigned sum = 0;
        if (std::sscanf(line.c_str(), "#tb 0: %d/%d", &numerator, &denominator) == 2)
            tick = static_cast<double>(numerator) / denominator;
        else if (std::sscanf(line.c_str(), "0, %*d, %lld, %*d, %*d, 0x%x", &time, &sum) == 2)
            shown.push_back({static_cast<double>(time) * tick, sum});
    }
    return shown;
}

std::vector<float> sound(const std::filesystem::path& path, const std::string& options) {
    const std::string bytes = output("ffmpeg -nostdin -v quiet -i " + quoted(path) + " " + options +
                                     " -map 0:a:0 -ac 2 -ar 48000 -f f32le -");
    std::vector<float> samples(bytes.size() / sizeof(float));
    std::memcpy(samples.data(), bytes.data(), samples.size() * sizeof(float));
    return samples;
}

}
