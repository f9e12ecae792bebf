#pragma once

#include <chrono>
#include <filesystem>
#include <optional>
#include <stop_token>
#include <string>
#include <vector>

namespace murbo {

/// Finding and running command-line tools.
namespace Tool {

/// The executable of that name: in "/opt/homebrew/bin", "/usr/local/bin" or "/usr/bin", else in ".local/bin"
/// of the home folder, else where PATH leads.
std::optional<std::filesystem::path> find(const std::string& name);

/// Runs a tool to its end, with nothing to read and its output thrown away; what it started ends with it, and
/// all of them with this program, whatever ends it. Blocks. Answers the last line of its error stream, for
/// tools that fail and don't say so otherwise. Throws a Problem where the tool is not installed, can't be
/// started, fails, or runs longer than `limit`; Cancelled where `stop` was asked for.
std::string run(const std::string& name, const std::vector<std::string>& arguments, std::stop_token stop = {},
                std::chrono::milliseconds limit = std::chrono::hours(24));

}

}
