#pragma once

#include "platform/base/Descriptor.h"

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>

#include <poll.h>

namespace murbo {

/// One message on its way to a port of this machine and back, without ever blocking.
class PortCall {
public:
    using Clock = std::chrono::steady_clock;

    PortCall(std::string message, std::uint16_t port, Clock::time_point until);

    /// What to wait for.
    pollfd watched() const;
    /// Goes on as far as it can, after a wait.
    void goOn(short events);

    bool isDone() const { return done; }
    Clock::time_point deadline() const { return last; }

    const std::string& message() const { return text; }
    /// What came back; empty where nobody answered.
    std::string body() const;

private:
    void connect(std::uint16_t port);
    void send();
    void receive();

    std::string text;
    std::string request;
    std::size_t sent = 0;
    std::string received;
    Descriptor socket;
    Clock::time_point last;
    bool done = false;
};

}
