#include "tests/intake/Stretches.h"

#include "tests/TemporaryFolder.h"

#include <cstdlib>

namespace murbo::stretches {
namespace {

void run(const std::string& arguments) {
    const std::string command = "ffmpeg -nostdin -v error -y " + arguments;
    EXPECT_EQ(std::system(command.c_str()), 0) << command;
}

std::string quoted(const std::filesystem::path& path) {
    return "'" + path.string() + "'";
}

/// Islands of even tones with hard shores: blurred noise, in steps.
std::filesystem::path picture() {
    static const auto path = [] {
        auto made = folder() / "picture.png";
        run("-f lavfi -i color=gray:s=960x720 -vf \"noise=alls=100:all_seed=7,gblur=sigma=7,"
            "lutyuv=y='floor(clip((val-128)*11+120,30,225)/45)*45':u=128:v=128\" -frames:v 1 " +
            quoted(made));
        return made;
    }();
    return path;
}

}

bool canMake() {
    static const bool can = std::system("ffmpeg -version >/dev/null 2>&1") == 0;
    return can;
}

const std::filesystem::path& folder() {
    static const TemporaryFolder made;
    return made.path;
}

std::filesystem::path stretch(const std::string& name, const std::string& filter,
                              const std::string& encoding) {
    auto path = folder() / name;
    if (!std::filesystem::exists(path))
        run("-loop 1 -r 25 -i " + quoted(picture()) + " -t 3 -vf \"" + filter +
            ",noise=alls=3:allf=t,format=yuv420p\" -an " + encoding + " " + quoted(path));
    return path;
}

}
