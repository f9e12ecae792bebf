#pragma once

#include <chrono>
#include <cstddef>
#include <stop_token>
#include <string>
#include <vector>

namespace murbo {

/// One-shot requests over HTTPS.
namespace Http {

struct Outgoing {
    std::string url;
    std::vector<std::string> headers; ///< whole lines: "Content-Type: application/json"
    std::string body;                 ///< sent by POST; without one the request is a GET
    /// How long nothing may move in either direction.
    std::chrono::milliseconds timeout = std::chrono::seconds(60);
    std::chrono::milliseconds longest = std::chrono::hours(2); ///< the whole exchange may take
    std::size_t maxBytes = 32 << 20; ///< bytes of an answer; a longer one is a failure
};

struct Reply {
    int status = 0;
    std::string body;
};

/// Sends a request once and waits for the whole answer, whatever its status. Follows no redirection: it could
/// carry a key elsewhere. Throws a Problem where the address is neither HTTPS nor on this very machine, and
/// where no answer comes; Cancelled where `stop` was asked for. Safe from any thread.
Reply send(const Outgoing& request, std::stop_token stop = {});

/// Whether requests may go to an address: by HTTPS, or without it to this very machine.
bool mayGoTo(const std::string& url);

}

}
