#pragma once

#include <algorithm>
#include <atomic>
#include <chrono>
#include <functional>
#include <mutex>
#include <string>
#include <thread>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

namespace murbo {

/// A web server on this machine that answers each request, one at a time, with bytes of the test's choice.
class FakeServer {
public:
    /// What is sent back for a whole request. Empty: nothing, and the connection stays open.
    using Answer = std::function<std::string(const std::string& request)>;

    /// `pauses` of some length are made while an answer is sent.
    explicit FakeServer(Answer chosen, std::size_t many = 0, std::chrono::milliseconds length = {})
        : answer(std::move(chosen)),
          pauses(many),
          pause(length),
          listener(::socket(AF_INET, SOCK_STREAM, 0)) {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof address;
        ::bind(listener, reinterpret_cast<sockaddr*>(&address), size);
        ::listen(listener, 8);
        ::getsockname(listener, reinterpret_cast<sockaddr*>(&address), &size);
        base = "http://127.0.0.1:" + std::to_string(ntohs(address.sin_port));
        serving = std::thread([this] { serve(); });
    }
    FakeServer(const FakeServer&) = delete;
    ~FakeServer() {
        over = true;
        ::shutdown(listener, SHUT_RDWR);
        ::shutdown(connection, SHUT_RDWR);
        serving.join();
        ::close(listener);
    }

    static std::string reply(int status, const std::string& body,
                             const std::string& type = "application/json") {
        return "HTTP/1.1 " + std::to_string(status) + " Reason\r\nContent-Type: " + type +
               "\r\nContent-Length: " + std::to_string(body.size()) + "\r\nConnection: close\r\n\r\n" + body;
    }

    /// The last request, head and body.
    std::string request() const {
        const std::lock_guard lock(guard);
        return received;
    }

    std::string base; ///< "http://127.0.0.1:12345"

private:
    void serve() {
        while (!over) {
            const int accepted = ::accept(listener, nullptr, nullptr);
            if (accepted < 0) return;
            connection = accepted;
            handle(accepted);
            ::close(accepted);
            connection = -1;
        }
    }

    void handle(int client) {
        std::string text;
        char part[65536];
        while (!isWhole(text)) {
            const auto got = ::recv(client, part, sizeof part, 0);
            if (got <= 0) return;
            text.append(part, static_cast<std::size_t>(got));
        }
        {
            const std::lock_guard lock(guard);
            received = text;
        }
        const auto bytes = answer(text);
        const auto step = bytes.size() / (pauses + 1) + 1;
        for (std::size_t at = 0; at < bytes.size(); at += step) {
            if (at > 0) std::this_thread::sleep_for(pause);
            ::send(client, bytes.data() + at, std::min(step, bytes.size() - at), MSG_NOSIGNAL);
        }
        if (bytes.empty()) ::recv(client, part, sizeof part, 0); // till the other side has had enough
    }

    static bool isWhole(const std::string& text) {
        const auto head = text.find("\r\n\r\n");
        if (head == text.npos) return false;
        const auto length = text.find("Content-Length: ");
        return length > head || text.size() >= head + 4 + std::stoul(text.substr(length + 16));
    }

    Answer answer;
    std::size_t pauses;
    std::chrono::milliseconds pause;
    int listener;
    std::atomic<int> connection = -1;
    std::atomic<bool> over = false;
    mutable std::mutex guard;
    std::string received;
    std::thread serving;
};

}
