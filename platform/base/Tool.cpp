#include "platform/base/Tool.h"

#include "platform/base/Cancelled.h"
#include "platform/base/HomeFolder.h"
#include "platform/base/Process.h"
#include "platform/base/Text.h"

#include <cstdint>
#include <cstdlib>
#include <string_view>

#include <fmt/format.h>
#include <sys/eventfd.h>
#include <unistd.h>

namespace murbo {
namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

constexpr std::size_t longestReason = 300; // bytes of a tool's last line that are shown

/// Every part of a text between two separators, empty ones left out.
std::vector<std::string> parts(std::string_view text, char separator) {
    std::vector<std::string> found;
    while (!text.empty()) {
        const auto end = text.find(separator);
        if (end != 0) found.emplace_back(text.substr(0, end));
        text = end == text.npos ? "" : text.substr(end + 1);
    }
    return found;
}

/// Where a tool may lie, the likeliest place first. A desktop starts us without the shell's PATH.
std::vector<fs::path> folders() {
    std::vector<fs::path> all{"/opt/homebrew/bin", "/usr/local/bin", "/usr/bin"};
    if (const auto home = homeFolder(); !home.empty()) all.push_back(home / ".local/bin");
    const char* path = std::getenv("PATH");
    for (auto& folder : parts(path ? path : "", ':'))
        if (folder.starts_with('/')) all.emplace_back(std::move(folder));
    return all;
}

bool isExecutable(const fs::path& path) {
    std::error_code error;
    return fs::is_regular_file(path, error) && ::access(path.c_str(), X_OK) == 0;
}

std::string lastLine(std::string_view words) {
    const auto lines = parts(words, '\n');
    if (lines.empty()) return "";
    return Text::trimmed(Text::repaired(lines.back().substr(0, longestReason)));
}

/// A file that can be read from once a stop is asked for.
class StopSignal {
public:
    explicit StopSignal(const std::stop_token& stop) : callback(stop, Raise{event}) {}
    int file() const { return event; }

private:
    struct Raise {
        int event;
        void operator()() const {
            const std::uint64_t one = 1;
            [[maybe_unused]] const auto written = ::write(event, &one, sizeof one);
        }
    };
    Descriptor event{::eventfd(0, EFD_CLOEXEC)};
    std::stop_callback<Raise> callback;
};

std::string inWords(std::chrono::milliseconds limit) {
    const auto seconds = static_cast<double>(limit.count()) / 1000;
    return seconds < 120 ? fmt::format("{:.3g} seconds", seconds)
                         : fmt::format("{:.0f} minutes", seconds / 60);
}

}

std::optional<fs::path> Tool::find(const std::string& name) {
    for (const auto& folder : folders())
        if (isExecutable(folder / name)) return folder / name;
    return std::nullopt;
}

std::string Tool::run(const std::string& name, const std::vector<std::string>& arguments,
                      std::stop_token stop, std::chrono::milliseconds limit) {
    const auto program = find(name);
    if (!program) throw Problem(name + " is not installed. Install it with Homebrew, then try again.");
    if (stop.stop_requested()) throw Cancelled();
    const StopSignal stopping(stop);
    Process process(*program, arguments);
    if (!process.wait(Clock::now() + limit, stopping.file())) {
        process.end();
        if (stop.stop_requested()) throw Cancelled();
        throw Problem(
            fmt::format("{} stopped with an error. It did not finish in {}.", name, inWords(limit)));
    }
    auto words = lastLine(process.lastWords());
    if (!process.succeeded()) throw Problem(name + " stopped with an error. " + words);
    return words;
}

}
