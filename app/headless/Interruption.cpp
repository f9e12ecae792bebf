#include "app/headless/Interruption.h"

#include <chrono>

namespace murbo {

namespace {

// Sent by ourselves to end the waiting; by default it does nothing.
constexpr int over = SIGURG;

// Tools that end a job signal both the process and its group: that is one wish, not two.
constexpr auto oneStroke = std::chrono::milliseconds(500);

bool isIgnored(int signal) {
    struct sigaction action = {};
    sigaction(signal, nullptr, &action);
    return action.sa_handler == SIG_IGN;
}

sigset_t signalsToCatch() {
    sigset_t set;
    sigemptyset(&set);
    sigaddset(&set, over);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP})
        if (!isIgnored(signal)) sigaddset(&set, signal);
    return set;
}

}

Interruption::Interruption() : caught(signalsToCatch()) {
    pthread_sigmask(SIG_BLOCK, &caught, &before);
    waiting = std::thread([this] { wait(); });
}

Interruption::~Interruption() {
    pthread_kill(waiting.native_handle(), over);
    waiting.join();
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
}

// A thread that waits for signals may do anything when one comes; a handler might not even take a lock.
void Interruption::wait() {
    using Clock = std::chrono::steady_clock;
    Clock::time_point first;
    int signal = 0;
    while (sigwait(&caught, &signal) == 0 && signal != over) {
        if (stop.request_stop()) first = Clock::now();
        if (Clock::now() - first < oneStroke) continue;
        std::signal(signal, SIG_DFL);
        pthread_sigmask(SIG_UNBLOCK, &caught, nullptr);
        raise(signal);
    }
}

}
