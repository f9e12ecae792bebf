#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include <sys/types.h>

namespace murbo {

/// A program that runs beside the test and ends with it.
class ChildProcess {
public:
    using Variables = std::map<std::string, std::string>; ///< set in its environment; "" takes one out

    /// What it prints goes into `log`; file descriptor `handedOn`, where there is one, is its 3.
    ChildProcess(const std::vector<std::string>& words, const Variables& variables,
                 const std::filesystem::path& log, int handedOn = -1);
    ChildProcess(const ChildProcess&) = delete;
    ~ChildProcess();

    bool runs();
    /// Asks it to end, and waits up to ten seconds.
    void end();
    /// Ends it at once, as a crash would.
    void kill();
    pid_t id() const { return pid; }
    /// How it ended: what it gave, or minus the signal's number.
    int status() const { return gave; }
    /// Seconds of processor time so far.
    double processorTime() const;

private:
    bool waited(int seconds);

    pid_t pid = -1;
    bool ended = false;
    int gave = 0;
};

}
