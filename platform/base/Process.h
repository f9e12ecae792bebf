#pragma once

#include "platform/base/Descriptor.h"

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include <sys/types.h>

namespace murbo {

/// A running child that does not outlive us: it stands in a process group of its own, so that it goes with
/// all that it started, and the kernel kills it when the thread that started it ends, however that comes
/// about. One thread starts it, waits for it and lets it go.
class Process {
public:
    /// Starts a program. Throws a Problem with the system's cause where it can't be started.
    Process(const std::filesystem::path& program, const std::vector<std::string>& arguments);
    Process(const Process&) = delete;
    ~Process();

    /// Takes in what it writes to its error stream, till it has ended, `until` has come, or `wake` can be
    /// read. Whether it has ended.
    bool wait(std::chrono::steady_clock::time_point until, int wake);

    /// Asks it to end, with all that it started, and kills what does not.
    void end();

    /// Once it has ended: whether it did so by itself and reported no failure.
    bool succeeded() const { return status == 0; }

    /// The end of what it wrote to its error stream.
    const std::string& lastWords() const { return words; }

private:
    void takeWords();
    bool reap();

    pid_t child = -1;
    Descriptor handle; ///< of the child; readable once it has ended
    Descriptor errors; ///< the reading end of its error stream
    std::string words;
    std::optional<int> status;
};

}
