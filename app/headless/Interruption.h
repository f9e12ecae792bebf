#pragma once

#include <csignal>
#include <stop_token>
#include <thread>

namespace murbo {

/// While it lives, Ctrl-C and a request to end ask for a stop instead of killing the program, so that long
/// work can tidy up after itself. A second one kills at once. Made before the threads of that work, which
/// take over its signal mask. Signals that the program was started to ignore (in the background, under nohup)
/// stay ignored.
class Interruption {
public:
    Interruption();
    Interruption(const Interruption&) = delete;
    ~Interruption();

    std::stop_token token() const { return stop.get_token(); }

private:
    void wait();

    sigset_t caught;
    sigset_t before;
    std::stop_source stop;
    std::thread waiting;
};

}
