#include "platform/net/OpenRouterAddress.h"

#include "platform/base/Problem.h"
#include "platform/net/Http.h"

#include <cstdlib>

namespace murbo {
namespace {

/// A name and a password, a query or a fragment have no business in an address that paths are added to.
bool isBare(const std::string& address) {
    return address.find_first_of("@?#") == address.npos;
}

}

std::string OpenRouterAddress::base() {
    const char* given = std::getenv("MURBO_OPENROUTER");
    if (!given || !*given) return "https://openrouter.ai";
    std::string address = given;
    if (!isBare(address) || !Http::mayGoTo(address))
        throw Problem("Nothing is sent to " + address + ": it is no HTTPS address.");
    if (address.back() == '/') address.pop_back();
    return address;
}

}
