// AI apps at the door of a ten-hour project, as they come: over HTTP, one connection a call. Each figure
// beside what it should stay under. The door and its clients are one process, on its own cores.
#include "app/mcp/EditorSession.h"
#include "app/mcp/MCPHost.h"
#include "app/mcp/bridge/MCPBridge.h"
#include "bench/model/BigProject.h"

#include <QCoreApplication>
#include <array>
#include <atomic>
#include <chrono>
#include <fstream>
#include <future>
#include <thread>

#include <arpa/inet.h>
#include <fmt/format.h>
#include <nlohmann/json.hpp>
#include <sys/socket.h>
#include <unistd.h>

namespace murbo::door {
namespace {

using nlohmann::json;

/// The big project's session, whose footage is measured already.
class HeardSession : public EditorSession {
public:
    using EditorSession::EditorSession;
    std::map<UUID, std::vector<std::uint8_t>> loudness(const std::vector<UUID>& sources) override {
        std::map<UUID, std::vector<std::uint8_t>> levels;
        for (const auto& id : sources) {
            auto& its = levels[id];
            its.resize(36'000);
            for (std::size_t at = 0; at < its.size(); ++at)
                its[at] = static_cast<std::uint8_t>(at * 7919 % 251);
        }
        return levels;
    }
};

double seconds() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

double megabytes() {
    std::ifstream file("/proc/self/statm");
    std::size_t all = 0;
    std::size_t held = 0;
    file >> all >> held;
    return static_cast<double>(held) * static_cast<double>(sysconf(_SC_PAGESIZE)) / (1 << 20);
}

std::string message(const std::string& tool, const json& arguments) {
    return json{{"jsonrpc", "2.0"},
                {"id", 1},
                {"method", "tools/call"},
                {"params", {{"name", tool}, {"arguments", arguments}}}}
        .dump();
}

std::string readAll(int from) {
    std::string text;
    std::array<char, 65536> bytes;
    for (ssize_t count; (count = ::read(from, bytes.data(), bytes.size())) > 0;)
        text.append(bytes.data(), static_cast<std::size_t>(count));
    return text;
}

/// One request on a connection of its own; the body of its answer.
std::string post(std::uint16_t port, const std::string& body) {
    const int connection = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    if (connect(connection, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0) return "";
    const auto request = fmt::format("POST /mcp HTTP/1.1\r\nHost: localhost\r\nContent-Length: {}\r\n\r\n{}",
                                     body.size(), body);
    for (std::size_t at = 0; at < request.size();) {
        const auto sent = send(connection, request.data() + at, request.size() - at, MSG_NOSIGNAL);
        if (sent <= 0) break;
        at += static_cast<std::size_t>(sent);
    }
    auto answer = readAll(connection);
    close(connection);
    const auto head = answer.find("\r\n\r\n");
    return head == answer.npos ? "" : answer.substr(head + 4);
}

struct Timed {
    std::vector<double> milliseconds;
    std::size_t bytes = 0;
    bool failed = false;

    double share(double part) {
        std::ranges::sort(milliseconds);
        return milliseconds[static_cast<std::size_t>(part * static_cast<double>(milliseconds.size() - 1))];
    }
};

template <class Body>
Timed timed(int count, const Body& ask) {
    Timed all;
    for (int at = 0; at < count; ++at) {
        const double start = seconds();
        const auto answer = ask(at);
        all.milliseconds.push_back(1000 * (seconds() - start));
        all.bytes = answer.size();
        all.failed |= answer.find("\"isError\":false") == answer.npos;
    }
    return all;
}

json manyCuts(int count) {
    auto cuts = json::array();
    for (int at = 0; at < count; ++at) {
        const auto tag = fmt::format("C{:02}.05", 1 + at * 3);
        cuts.push_back({{"from", tag}, {"to", tag}});
    }
    return cuts;
}

json shots(int count) {
    auto all = json::array();
    for (int at = 0; at < count; ++at)
        all.push_back(
            {{"at", fmt::format("C{:02}.05", 1 + at * 3)}, {"layout", at % 2 ? "face" : "content"}});
    return all;
}

json clips(int count) {
    auto tags = json::array();
    for (int at = 1; at <= count; ++at) tags.push_back(fmt::format("C{:02}", at));
    return tags;
}

struct Tool {
    const char* name;
    double most; ///< ms, of 99 in 100 calls
    std::function<json(int)> arguments;
};

const std::vector<Tool>& reads() {
    static const std::vector<Tool> all{
        {"overview", 25, [](int) { return json::object(); }},
        {"read_clips", 10,
         [](int) {
             return json{{"clips", clips(10)}};
         }},
        {"search_lines", 10,
         [](int) {
             return json{{"query", "cliff"}};
         }},
        {"read_video", 10,
         [](int) {
             return json{{"video", "V7"}};
         }},
        {"read_loudness", 10,
         [](int) {
             return json{{"video", "V7"}};
         }},
        {"list_bookmarks", 10, [](int) { return json::object(); }},
        {"what_changed", 10,
         [](int) {
             return json{{"video", "V7"}};
         }},
        {"list_playbooks", 10, [](int) { return json::object(); }},
        {"read_playbook", 10,
         [](int) {
             return json{{"playbook", "stock.hearts"}};
         }},
        {"playbook_guide", 10, [](int) { return json::object(); }},
        {"list_sounds", 10, [](int) { return json::object(); }},
    };
    return all;
}

const std::vector<Tool>& changes() {
    static const std::vector<Tool> all{
        {"rename_video", 15,
         [](int at) {
             return json{{"video", "V7"}, {"title", fmt::format("T{}", at)}};
         }},
        {"set_cuts", 15,
         [](int at) {
             return json{{"video", "V7"}, {"cuts", manyCuts(20 - at % 2)}};
         }},
        {"set_shots", 15,
         [](int at) {
             return json{{"video", "V7"}, {"shots", shots(19 - at % 2)}};
         }},
        {"set_captions", 15,
         [](int at) {
             return json{{"video", "V7"}, {"big", {at % 2 ? "C01.05" : "C04.05"}}};
         }},
        {"make_video", 15,
         [](int) {
             return json{{"title", "New"}, {"cuts", manyCuts(20)}};
         }},
        {"describe_clips", 15,
         [](int at) {
             return json{
                 {"clips", {{{"clip", "C09"}, {"title", fmt::format("T{}", at)}, {"summary", "S."}}}}};
         }},
        {"fix_lines", 15,
         [](int at) {
             return json{{"lines", {{{"line", "C02.03"}, {"text", fmt::format("words {}", at)}}}}};
         }},
        {"undo_my_last", 15, [](int) { return json::object(); }},
    };
    return all;
}

void measure(std::uint16_t port, const std::vector<Tool>& tools, int count) {
    for (const auto& tool : tools) {
        auto times = timed(count, [&](int at) { return post(port, message(tool.name, tool.arguments(at))); });
        fmt::print("{:<16}{:8.2f}{:8.2f}{:8.2f} ms  under {:2.0f} {}  {} bytes{}\n", tool.name,
                   times.share(0.5), times.share(0.99), times.share(1), tool.most,
                   times.share(0.99) < tool.most ? "ok" : "NO", times.bytes, times.failed ? ", FAILED" : "");
    }
}

/// Fifty clients at once, each of which knows its answers from all others'.
void fiftyClients(std::uint16_t port) {
    constexpr int clients = 50;
    constexpr int each = 100;
    std::atomic<int> wrong = 0;
    const double start = seconds();
    std::vector<std::jthread> threads;
    for (int client = 0; client < clients; ++client)
        threads.emplace_back([&, client] {
            for (int at = 0; at < each; ++at) {
                const auto word = fmt::format("nobody {} {}", client, at);
                if (post(port, message("search_lines", {{"query", word}})).find("“" + word + "”") ==
                    std::string::npos)
                    ++wrong;
            }
        });
    threads.clear();
    fmt::print("50 clients: {} calls, {} lost or mixed up, {:.0f} calls a second\n", clients * each,
               wrong.load(), clients * each / (seconds() - start));
}

void manyCalls(std::uint16_t port, int count) {
    double before = 0;
    for (int at = 0; at < count; ++at) {
        if (at == count / 10) before = megabytes();
        if (at % 100 == 0)
            post(port, message("rename_video", {{"video", "V8"}, {"title", fmt::format("T{}", at)}}));
        else
            post(port, message("read_video", {{"video", "V8"}}));
    }
    fmt::print("{} calls: {:.1f} MB after a tenth of them, {:.1f} MB at the end\n", count, before,
               megabytes());
}

/// What the bridge adds to a call.
void bridge(std::uint16_t port) {
    std::array<int, 2> in;
    std::array<int, 2> out;
    if (pipe(in.data()) != 0 || pipe(out.data()) != 0) return;
    std::thread running([&] {
        MCPBridge::run({in[0], out[1], port});
        close(out[1]);
    });
    const auto line = message("list_bookmarks", json::object());
    auto direct = timed(500, [&](int) { return post(port, line); });
    auto over = timed(500, [&](int) {
        const auto sent = line + "\n";
        if (write(in[1], sent.data(), sent.size()) < 0) return std::string();
        std::string answer;
        for (char one = 0; one != '\n' && read(out[0], &one, 1) == 1;) answer += one;
        return answer;
    });
    fmt::print(
        "bridge: {:.2f} ms a call beside {:.2f} without, at the 99th {:.2f} beside {:.2f} (may add 2)\n",
        over.share(0.5), direct.share(0.5), over.share(0.99), direct.share(0.99));
    close(in[1]);
    running.join();
    close(out[0]);
    close(in[0]);
}

void run(int count, char** words) {
    const QCoreApplication application(count, words);
    Editor editor(bigProject(), {}, std::nullopt, [](const Project&) {}); // beside the save
    MCPHost host(nullptr);
    host.setSession(std::make_shared<HeardSession>(editor));
    host.start(0);
    const auto port = host.port();
    std::jthread clients([&] {
        fmt::print("tool              median    99th    most\n");
        post(port, message("overview", json::object()));
        post(port, message("read_video", {{"video", "V7"}}));
        measure(port, reads(), 300);
        measure(port, changes(), 100);
        bridge(port);
        fiftyClients(port);
        manyCalls(port, count > 1 ? std::stoi(words[1]) : 100'000);
        QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
    });
    QCoreApplication::exec();
}

}
}

int main(int count, char** words) {
    murbo::door::run(count, words);
}
