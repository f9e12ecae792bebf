#include "platform/base/HomeFolder.h"

#include <array>
#include <cstdlib>

#include <pwd.h>
#include <unistd.h>

namespace murbo {

std::filesystem::path homeFolder() {
    if (const char* home = std::getenv("HOME"); home && *home == '/') return home;
    std::array<char, 16384> room;
    passwd entry{};
    passwd* found = nullptr;
    const bool known = ::getpwuid_r(::getuid(), &entry, room.data(), room.size(), &found) == 0 && found;
    return known ? entry.pw_dir : "";
}

}
