#include "platform/net/OpenRouterAddress.h"
#include "tests/Environment.h"
#include "tests/ProblemOf.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(OpenRouterAddress, isEncryptedOrOnThisMachine) {
    for (const auto& [given, used] : {std::pair{"", "https://openrouter.ai"},
                                      {"https://example.org/", "https://example.org"},
                                      {"http://127.0.0.1:80", "http://127.0.0.1:80"},
                                      {"http://[::1]:80/", "http://[::1]:80"},
                                      {"http://localhost:80", "http://localhost:80"}}) {
        const Environment address("MURBO_OPENROUTER", given);
        EXPECT_EQ(OpenRouterAddress::base(), used);
    }
    for (const char* unfit : {"http://openrouter.example", "ftp://127.0.0.1", "https://user@openrouter.ai",
                              "https://openrouter.ai?to=x", "https://openrouter.ai/#x", "openrouter.ai"}) {
        const Environment address("MURBO_OPENROUTER", unfit);
        EXPECT_EQ(problemOf([] { OpenRouterAddress::base(); }),
                  "Nothing is sent to " + std::string(unfit) + ": it is no HTTPS address.");
    }
}
