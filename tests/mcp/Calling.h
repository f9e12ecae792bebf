#pragma once

#include "core/mcp/MCPCalls.h"
#include "tests/ProblemOf.h"
#include "tests/ai/Footage.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

namespace murbo {

/// Calls of tools on a project with the clips C01 (0 to 8 s) and C02 (100 to 106 s) and the video V1 "First".
class Calling : public testing::Test, protected Footage {
protected:
    using json = nlohmann::json;

    Calling() {
        addClip(0, {"so this is the boss room", "two", "three"}); // 1-2, 3-4, 5-6
        addClip(100, {"over there", "THE BOSS"});                 // 101-102, 103-104
        addVideo("First", {cut(1, 4), cut(101, 104)});            // V1
    }

    MCPResult call(const char* tool, const std::string& arguments) {
        auto result = MCPCalls::call(tool, json::parse(arguments), project, context);
        if (result.looked)
            for (const auto& video : project.videos)
                if (video.id == *result.looked) context.seen[video.id] = video;
        return result;
    }
    std::string text(const char* tool, const std::string& arguments) { return call(tool, arguments).text; }
    std::string problem(const char* tool, const std::string& arguments) {
        const auto before = project;
        auto words = problemOf([&] { call(tool, arguments); });
        EXPECT_EQ(project, before) << tool;
        return words;
    }
    Video& video() { return project.videos.edit()[0]; }

    MCPContext context;
};

}
