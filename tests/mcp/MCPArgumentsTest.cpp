#include "core/mcp/MCPArguments.h"
#include "tests/ProblemOf.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

using namespace murbo;
using nlohmann::json;
using testing::HasSubstr;

TEST(MCPArguments, sayWhatIsWantedAndShowIt) {
    const auto words = [](const char* tool, const json& arguments) {
        return problemOf([&] { MCPArguments::check(*MCPTool::named(tool), arguments); });
    };
    constexpr auto wanted =
        "read_video needs “video”, a string: The video's tag, like V2. For example: read_video "
        "{\"video\": \"V2\"}";
    EXPECT_EQ(words("read_video", json::object()), wanted);
    EXPECT_EQ(words("read_video", {{"video", 2}}), wanted);
    EXPECT_EQ(words("list_sounds", {{"search", nullptr}}), "") << "null is as good as nothing";
    EXPECT_THAT(words("set_shots", {{"video", "V2"}, {"shots", "C01.02"}}),
                HasSubstr("needs “shots”, an array"));
    EXPECT_EQ(words("rename_video", {{"video", "V2"}, {"title", std::string(20'001, 'x')}}),
              "“title” is too long: at most 20000 bytes.");
    const json entry{{"line", "C01.02"}, {"text", std::string(20'001, 'x')}};
    EXPECT_EQ(words("fix_lines", {{"lines", json::array({entry})}}),
              "“lines” is too long: at most 20000 bytes.");
    EXPECT_THAT(words("fix_lines", {{"lines", json(std::vector<int>(5'001))}}),
                HasSubstr("at most 5000 entries"));
}
