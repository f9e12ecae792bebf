#pragma once

#include "tests/TemporaryFolder.h"

#include <array>
#include <cstdio>

#include <gtest/gtest.h>

/// Media files made for a test by the ffmpeg program.
namespace murbo::made {

/// Whether the ffmpeg program is on this machine.
inline bool canMake() {
    static const bool can = std::system("ffmpeg -version >/dev/null 2>&1") == 0;
    return can;
}

/// A folder of this process's own, gone with it.
inline const std::filesystem::path& folder() {
    static const TemporaryFolder made;
    return made.path;
}

inline std::string quoted(const std::filesystem::path& path) {
    std::string word = "'"; // by steps: GCC 12 warns falsely of a sum that begins with letters
    return word.append(path.string()).append("'");
}

/// Makes a file in that folder, once, and answers its path. `arguments` stand between "ffmpeg -y" and the
/// name.
inline std::filesystem::path file(const std::string& name, const std::string& arguments) {
    const auto path = folder() / name;
    if (std::filesystem::exists(path)) return path;
    const std::string command = "ffmpeg -nostdin -v error -y " + arguments + " " + quoted(path);
    EXPECT_EQ(std::system(command.c_str()), 0) << command;
    return path;
}

/// What a command prints.
inline std::string output(const std::string& command) {
    std::string text;
    FILE* pipe = popen(command.c_str(), "r");
    std::array<char, 1 << 16> buffer{};
    while (const std::size_t got = std::fread(buffer.data(), 1, buffer.size(), pipe))
        text.append(buffer.data(), got);
    pclose(pipe);
    return text;
}

}

#define MURBO_NEEDS_FFMPEG() \
    if (!murbo::made::canMake()) GTEST_SKIP() << "The ffmpeg program makes these files, and it is not here."
