#pragma once

#include "tests/app/Program.h"

#include <poll.h>
#include <pty.h>
#include <unistd.h>

namespace murbo {

/// What a run on a terminal showed.
struct TerminalRun {
    int code = 0;
    std::string shown; ///< standard error and what was typed, line breaks as "\n"
};

/// Runs a shell command on a terminal of its own and types an answer to its question, at the latest after a
/// minute.
inline TerminalRun onTerminal(const std::string& command, const std::string& typed) {
    int terminal = -1;
    const auto child = forkpty(&terminal, nullptr, nullptr, nullptr);
    if (child == 0) {
        execl("/bin/sh", "sh", "-c", ("exec " + command).c_str(), nullptr);
        _exit(127);
    }
    TerminalRun ran;
    bool answered = false;
    pollfd readable{terminal, POLLIN, 0};
    char bytes[4096];
    while (poll(&readable, 1, 60'000) > 0) {
        const auto count = read(terminal, bytes, sizeof bytes);
        if (count <= 0) break; // the terminal is let go of when the command has ended
        ran.shown.append(bytes, static_cast<std::size_t>(count));
        if (answered || !ran.shown.ends_with("[y/N] ")) continue;
        answered = write(terminal, typed.data(), typed.size()) > 0;
    }
    std::erase(ran.shown, '\r');
    int status = 0;
    waitpid(child, &status, 0);
    ran.code = WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
    close(terminal);
    return ran;
}

}
