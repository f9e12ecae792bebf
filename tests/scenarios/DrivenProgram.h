#pragma once

#include "tests/scenarios/ChildProcess.h"
#include "tests/scenarios/ScreenItem.h"

namespace murbo {

/// The program as a person starts it, on a screen, with folders of its own and without a message bus; what it
/// shows can be asked for.
class DrivenProgram {
public:
    /// `home` is where its settings, caches and sockets go; it may hold those of an earlier start.
    DrivenProgram(const std::filesystem::path& home, const std::string& screen,
                  const std::vector<std::string>& words, const ChildProcess::Variables& more = {});
    ~DrivenProgram();

    /// What is in its windows now; nothing while it does not answer.
    std::vector<ScreenItem> items();
    /// Whether keys that are pressed come to it.
    bool active();
    /// Where the pointer last came to one of its windows, as it knows it now; pixels on the screen.
    ScreenPoint pointer();
    ChildProcess& process() { return *child; }
    /// What it has printed.
    std::string log() const { return contentsOf(logFile); }

private:
    bool reach();
    std::string answer(); ///< a line of JSON, or nothing

    std::filesystem::path socket;
    std::filesystem::path logFile;
    std::unique_ptr<ChildProcess> child;
    int connection = -1;
};

}
