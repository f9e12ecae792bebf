#include "app/mcp/bridge/PortCall.h"

#include <array>
#include <cerrno>
#include <charconv>

#include <arpa/inet.h>
#include <fmt/format.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>

namespace murbo {

namespace {

constexpr std::string_view blankLine = "\r\n\r\n";

}

PortCall::PortCall(std::string message, std::uint16_t port, Clock::time_point until)
    : text(std::move(message)),
      request(fmt::format("POST /mcp HTTP/1.1\r\nHost: 127.0.0.1:{}\r\nContent-Type: application/json\r\n"
                          "Content-Length: {}\r\nConnection: close\r\n\r\n{}",
                          port, text.size(), text)),
      socket(::socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0)),
      last(until) {
    connect(port);
}

void PortCall::connect(std::uint16_t port) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    const auto result = ::connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address);
    done = result < 0 && errno != EINPROGRESS;
}

pollfd PortCall::watched() const {
    return {done ? -1 : socket, static_cast<short>(sent < request.size() ? POLLOUT | POLLIN : POLLIN), 0};
}

void PortCall::goOn(short events) {
    if (!done && Clock::now() >= last) {
        received.clear();
        done = true;
    }
    if (!done && (events & (POLLOUT | POLLERR))) send();
    if (!done && (events & (POLLIN | POLLHUP | POLLERR))) receive();
}

void PortCall::send() {
    while (sent < request.size()) {
        const auto count =
            ::send(socket, request.data() + sent, request.size() - sent, MSG_NOSIGNAL | MSG_DONTWAIT);
        if (count > 0) {
            sent += static_cast<std::size_t>(count);
            continue;
        }
        // A program that refuses a request closes early; what it said may still be read.
        if (errno != EAGAIN && errno != EINTR) sent = request.size();
        return;
    }
}

void PortCall::receive() {
    std::array<char, 1 << 16> bytes;
    for (;;) {
        const auto count = ::recv(socket, bytes.data(), bytes.size(), MSG_DONTWAIT);
        if (count < 0 && errno == EAGAIN) return;
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) {
            done = true;
            return;
        }
        received.append(bytes.data(), static_cast<std::size_t>(count));
    }
}

std::string PortCall::body() const {
    const auto end = received.find(blankLine);
    return end == received.npos ? "" : received.substr(end + blankLine.size());
}

}
