#pragma once

#include <chrono>
#include <cstdint>
#include <string>

namespace murbo {

/// Carries an AI app's messages, a line each, between two descriptors and the running program's port. What
/// needs no program it answers itself. It ends when its input does: calls that are out then have a moment
/// left to come back, and nobody waits longer.
namespace MCPBridge {

struct Endpoints {
    int input = 0;
    int output = 1;
    std::uint16_t port = 0;
};

void run(const Endpoints& ends);

/// How long a call may take: the owner may be asked.
inline constexpr std::chrono::seconds longestCall{600};
/// How long calls may still come back once the input has ended.
inline constexpr std::chrono::milliseconds grace{500};

}

}
