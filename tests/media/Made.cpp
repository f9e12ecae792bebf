#include "tests/media/Made.h"

#include "tests/TemporaryFolder.h"

#include <cstdio>
#include <sstream>

namespace murbo::made {

bool canMake() {
    static const bool can = std::system("ffmpeg -version >/dev/null 2>&1") == 0;
    return can;
}

const std::filesystem::path& folder() {
    static const TemporaryFolder made;
    return made.path;
}

std::string quoted(const std::filesystem::path& path) {
    return "'" + path.string() + "'";
}

std::filesystem::path file(const std::string& name, const std::string& arguments) {
    const auto path = folder() / name;
    if (std::filesystem::exists(path)) return path;
    const std::string command = "ffmpeg -nostdin -v error -y " + arguments + " " + quoted(path);
    EXPECT_EQ(std::system(command.c_str()), 0) << command;
    return path;
}

std::string output(const std::string& command) {
    std::string text;
    FILE* pipe = popen(command.c_str(), "r");
    std::array<char, 1 << 16> buffer{};
    while (const std::size_t got = std::fread(buffer.data(), 1, buffer.size(), pipe))
        text.append(buffer.data(), got);
    pclose(pipe);
    return text;
}

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
