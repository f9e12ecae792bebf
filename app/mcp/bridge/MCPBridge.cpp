#include "app/mcp/bridge/MCPBridge.h"

#include "app/mcp/bridge/PortCall.h"
#include "core/mcp/MCPServer.h"

#include <array>
#include <list>

#include <nlohmann/json.hpp>
#include <poll.h>
#include <unistd.h>

namespace murbo {

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::size_t readAtOnce = std::size_t{1} << 16;
constexpr std::size_t writeAtOnce = 4096; // a pipe that takes anything takes as much without blocking

class Bridge {
public:
    explicit Bridge(const MCPBridge::Endpoints& given) : ends(given) {}

    void run() {
        while (isWanted()) {
            wait();
            for (auto& call : calls)
                if (call.isDone()) finish(call);
            calls.remove_if([](const PortCall& call) { return call.isDone(); });
        }
    }

private:
    bool isWanted() const {
        if (outputClosed) return false;
        if (!inputEnded) return true;
        return !(calls.empty() && out.empty()) && Clock::now() < lastMoment;
    }

    void wait() {
        std::vector<pollfd> watched;
        watched.push_back({inputEnded ? -1 : ends.input, POLLIN, 0});
        watched.push_back({ends.output, static_cast<short>(out.empty() ? 0 : POLLOUT), 0});
        for (auto& call : calls) watched.push_back(call.watched());
        const auto left = nextMoment() - Clock::now();
        const auto most =
            std::chrono::ceil<std::chrono::milliseconds>(std::max(left, Clock::duration::zero()));
        if (poll(watched.data(), watched.size(), static_cast<int>(most.count())) < 0) return;
        std::size_t at = 2;
        for (auto& call : calls) call.goOn(watched[at++].revents);
        if (watched[0].revents) read();
        if (watched[1].revents & (POLLERR | POLLHUP)) outputClosed = true;
        if (watched[1].revents & POLLOUT) write();
    }

    Clock::time_point nextMoment() const {
        auto next = inputEnded ? lastMoment : Clock::now() + MCPBridge::longestCall;
        for (const auto& call : calls) next = std::min(next, call.deadline());
        return next;
    }

    void read() {
        std::array<char, readAtOnce> bytes;
        const auto count = ::read(ends.input, bytes.data(), bytes.size());
        if (count < 0 && (errno == EINTR || errno == EAGAIN)) return;
        if (count <= 0) {
            inputEnded = true;
            lastMoment = Clock::now() + MCPBridge::grace;
            if (!line.empty()) take(std::exchange(line, {}));
            return;
        }
        const std::string_view read(bytes.data(), static_cast<std::size_t>(count));
        std::size_t from = 0;
        for (auto end = read.find('\n'); end != read.npos; end = read.find('\n', from)) {
            line += read.substr(from, end - from);
            take(std::exchange(line, {}));
            from = end + 1;
        }
        line += read.substr(from);
    }

    void take(std::string text) {
        const auto message = MCPServer::message(text);
        if (!message) return;
        const auto method = message->find("method");
        if (method != message->end() && *method == "tools/call") {
            calls.emplace_back(std::move(text), ends.port, Clock::now() + MCPBridge::longestCall);
        } else {
            answer(*message);
        }
    }

    void answer(const nlohmann::json& message) {
        if (const auto reply = MCPServer::reply(message, MURBO_VERSION))
            out += MCPServer::bytes(*reply) + "\n";
    }

    void finish(PortCall& call) {
        auto body = call.body();
        if (body.empty()) return answer(*MCPServer::message(call.message()));
        std::replace(body.begin(), body.end(), '\n', ' '); // one line, whoever wrote it
        out += body + "\n";
    }

    void write() {
        const auto count =
            ::write(ends.output, out.data() + written, std::min(out.size() - written, writeAtOnce));
        if (count < 0 && errno != EINTR && errno != EAGAIN) outputClosed = true;
        if (count > 0) written += static_cast<std::size_t>(count);
        if (written < out.size()) return;
        out.clear();
        written = 0;
    }

    const MCPBridge::Endpoints ends;
    std::list<PortCall> calls;
    std::string line;
    std::string out;
    std::size_t written = 0; ///< of `out`
    bool inputEnded = false;
    bool outputClosed = false;
    Clock::time_point lastMoment; ///< once the input has ended
};

}

void MCPBridge::run(const Endpoints& ends) {
    Bridge(ends).run();
}

}
