#include "tests/scenarios/DrivenProgram.h"

#include "platform/base/Json.h"

#include <cstring>

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace murbo {
namespace {

namespace fs = std::filesystem;

constexpr int patience = 20000; ///< ms for an answer

ChildProcess::Variables surroundings(const fs::path& home, const std::string& screen) {
    ChildProcess::Variables all{{"HOME", (home / "home").string()},
                                {"XDG_CONFIG_HOME", (home / "config").string()},
                                {"XDG_DATA_HOME", (home / "data").string()},
                                {"XDG_CACHE_HOME", (home / "cache").string()},
                                {"XDG_RUNTIME_DIR", (home / "run").string()},
                                {"MURBO_ACCESS", (home / "run/access").string()},
                                {"DISPLAY", screen},
                                {"WAYLAND_DISPLAY", ""},
                                {"QT_QPA_PLATFORM", "xcb"},
                                {"QT_QUICK_BACKEND", "software"},
                                {"DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent"},
                                {"NO_AT_BRIDGE", "1"}};
    for (const auto* folder : {"home", "config", "data", "cache", "run"})
        fs::create_directories(home / folder);
    fs::permissions(home / "run", fs::perms::owner_all);
    return all;
}

/// The one that is tested, or where another is wanted that one.
std::string program() {
    const auto* other = std::getenv("MURBO_PROGRAM");
    return other ? other : MURBO_PROGRAM;
}

}

DrivenProgram::DrivenProgram(const fs::path& home, const std::string& screen,
                             const std::vector<std::string>& given, const ChildProcess::Variables& more)
    : socket(home / "run/access"), logFile(home / "log") {
    auto variables = surroundings(home, screen);
    for (const auto& [name, value] : more) variables[name] = value;
    std::vector<std::string> words{program()};
    words.insert(words.end(), given.begin(), given.end());
    fs::remove(socket);
    child = std::make_unique<ChildProcess>(words, variables, logFile);
}

DrivenProgram::~DrivenProgram() {
    if (connection >= 0) close(connection);
}

bool DrivenProgram::reach() {
    if (connection >= 0) return true;
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::strncpy(address.sun_path, socket.c_str(), sizeof address.sun_path - 1);
    connection = ::socket(AF_UNIX, SOCK_STREAM, 0);
    if (connect(connection, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0) return true;
    close(connection);
    connection = -1;
    return false;
}

std::string DrivenProgram::answer() {
    if (!reach()) return {};
    std::string answer;
    bool whole = send(connection, "\n", 1, MSG_NOSIGNAL) == 1;
    while (whole && (answer.empty() || answer.back() != '\n')) {
        pollfd ready{connection, POLLIN, 0};
        char part[1 << 16];
        const auto got = poll(&ready, 1, patience) == 1 ? read(connection, part, sizeof part) : 0;
        whole = got > 0;
        if (whole) answer.append(part, static_cast<std::size_t>(got));
    }
    if (whole) return answer;
    close(connection);
    connection = -1;
    return {};
}

std::vector<ScreenItem> DrivenProgram::items() {
    const auto given = answer();
    if (given.empty()) return {};
    const auto parsed = Json::parse(given);
    return ScreenItem::all(*parsed.root().member("items"));
}

bool DrivenProgram::active() {
    const auto given = answer();
    return !given.empty() && Json::parse(given).root().member("active")->boolean();
}

ScreenPoint DrivenProgram::pointer() {
    const auto given = answer();
    if (given.empty()) return {-1, -1};
    const auto parsed = Json::parse(given);
    const auto place = *parsed.root().member("pointer");
    return {place.element(0).number(), place.element(1).number()};
}

}
