#pragma once

#include "platform/base/Files.h"
#include "tests/TemporaryFolder.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace murbo {

/// Compares a text with the one that was read and approved before, line by line. Where a change is meant,
/// `./dev approve` takes the new text, to be read in the diff. `name` is below tests/:
/// "editor/approved/cuts.txt".
inline void expectApproved(const std::string& name, const std::string& text) {
    const auto file = std::filesystem::path(MURBO_TESTS) / name;
    if (std::getenv("MURBO_RENEW")) {
        Files::createFolder(file.parent_path());
        Files::writeWhole(file, text);
    }
    const auto lines = [](const std::string& whole) {
        std::istringstream stream(whole);
        std::vector<std::string> found;
        for (std::string line; std::getline(stream, line);) found.push_back(line);
        return found;
    };
    const auto before = lines(contentsOf(file)), now = lines(text);
    const auto from = std::mismatch(before.begin(), before.end(), now.begin(), now.end());
    if (from.first == before.end() && from.second == now.end()) return;
    const auto shown = [](auto line, auto end) {
        std::string few;
        for (int count = 0; line != end && count < 12; ++line, ++count) few += *line + "\n";
        return few;
    };
    ADD_FAILURE() << "Not as approved in " << name << ", line " << from.first - before.begin() + 1
                  << ". Where it is meant: ./dev approve\nApproved:\n"
                  << shown(from.first, before.end()) << "Now:\n"
                  << shown(from.second, now.end());
}

/// The names of a folder's files below tests/, without their endings, in order.
inline std::vector<std::string> stemsOf(const std::string& folder) {
    std::vector<std::string> stems;
    for (const auto& file : std::filesystem::directory_iterator(std::filesystem::path(MURBO_TESTS) / folder))
        stems.push_back(file.path().stem().string());
    std::ranges::sort(stems);
    return stems;
}

/// The lines of a text file below tests/, without those that begin with "//".
inline std::vector<std::string> linesOf(const std::string& name) {
    std::istringstream stream(contentsOf(std::filesystem::path(MURBO_TESTS) / name));
    std::vector<std::string> lines;
    for (std::string line; std::getline(stream, line);)
        if (!line.empty() && !line.starts_with("//")) lines.push_back(line);
    EXPECT_FALSE(lines.empty()) << name;
    return lines;
}

}
