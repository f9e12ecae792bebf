#include "app/headless/ProgressLine.h"

#include "core/model/ProjectSummary.h"

#include <cstdio>

#include <fmt/format.h>
#include <unistd.h>

namespace murbo {

namespace {

using namespace std::chrono_literals;

constexpr auto betweenShows = 200ms;
constexpr auto minToJudge = 1s; // before that, the time left would be a guess

}

ProgressLine::ProgressLine() : onTerminal(isatty(STDERR_FILENO) == 1) {}

void ProgressLine::show(double progress) {
    const auto now = Clock::now();
    if (!onTerminal || now - shown < betweenShows) return;
    shown = now;
    const std::chrono::duration<double> spent = now - started;
    auto line = fmt::format("\r\033[K{:3.0f} %", progress * 100);
    if (spent > minToJudge && progress > 0)
        line += fmt::format("  {} left",
                            ProjectSummary::clock(spent.count() / progress * (1 - progress) + 0.999));
    std::fputs(line.c_str(), stderr);
    std::fflush(stderr);
}

void ProgressLine::clear() {
    if (!onTerminal || shown == started) return;
    std::fputs("\r\033[K", stderr);
    shown = started;
}

}
