#pragma once

#include <chrono>

namespace murbo {

/// One line on a terminal that says how far long work is and how long it will still take. It stands on
/// standard error, and only where that is a terminal: what a script reads holds none of it.
class ProgressLine {
public:
    ProgressLine();
    ~ProgressLine() { clear(); }
    ProgressLine(const ProgressLine&) = delete;

    /// `progress` from 0 to 1; may be called as often as one likes.
    void show(double progress);
    void clear();

private:
    using Clock = std::chrono::steady_clock;

    bool onTerminal;
    Clock::time_point started = Clock::now();
    Clock::time_point shown = started;
};

}
