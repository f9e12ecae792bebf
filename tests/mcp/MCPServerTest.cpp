#include "core/mcp/MCPServer.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

using namespace murbo;

TEST(MCPMessage, isAnObjectOrNone) {
    for (const auto* body : {"[]", "", "7", "{", "{\"a\": \"\xff\"}", "{\"a\": 1e999}"})
        EXPECT_FALSE(MCPServer::message(body)) << body;
    EXPECT_FALSE(MCPServer::message("{\"a\": " + std::string(100'000, '[')));
    EXPECT_TRUE(MCPServer::message("{\"a\": [1]}"));
}
