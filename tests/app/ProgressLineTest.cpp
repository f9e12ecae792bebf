#include "app/headless/ProgressLine.h"
#include "platform/base/Descriptor.h"

#include <cstdio>
#include <functional>
#include <thread>

#include <gtest/gtest.h>
#include <pty.h>
#include <unistd.h>

using namespace murbo;
using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

namespace {

/// What stands on standard error while it is a terminal.
std::string onTerminal(const std::function<void()>& work) {
    int here = -1;
    int there = -1;
    if (openpty(&here, &there, nullptr, nullptr, nullptr) != 0) return "no terminal";
    const Descriptor reading(here);
    {
        const Descriptor terminal(there);
        const Descriptor before(dup(STDERR_FILENO));
        dup2(terminal, STDERR_FILENO);
        work();
        dup2(before, STDERR_FILENO);
    }
    std::string text; // up to the end, which comes once nobody writes to it any more
    char part[1000];
    for (ssize_t count = 0; (count = ::read(reading, part, sizeof part)) > 0;)
        text.append(part, static_cast<std::size_t>(count));
    return text;
}

}

TEST(ProgressLine, saysHowLongWorkWillStillTakeOnceItCanTell) {
    std::string text;
    for (bool calm = false; !calm;) { // on a machine that was held up meanwhile it says something else
        text = onTerminal([&] {
            const auto started = Clock::now();
            ProgressLine line;
            line.show(0.05); // at once
            calm = Clock::now() < started + 200ms;
            std::this_thread::sleep_for(250ms);
            line.show(0.1);
            calm = calm && Clock::now() < started + 1s;
            std::this_thread::sleep_until(started + 1100ms);
            const auto shown = Clock::now();
            line.show(0.9);
            line.show(0.95); // right after
            calm = calm && Clock::now() < shown + 200ms && shown < started + 4s;
            line.clear();
            line.clear();
        });
    }
    EXPECT_EQ(text, "\r\033[K 10 %\r\033[K 90 %  0:01 left\r\033[K");
}

TEST(ProgressLine, isShownOnATerminalOnly) {
    testing::internal::CaptureStderr();
    {
        ProgressLine line;
        std::this_thread::sleep_for(250ms);
        line.show(0.5);
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}
