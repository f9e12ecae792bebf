#include "core/ai/Reply.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

using namespace murbo;
using nlohmann::json;

TEST(Reply, findsTheObjectWhateverStandsRoundIt) {
    const auto object = json::parse(R"({"a": {"b": "}"}})");
    for (const char* text : {R"({"a": {"b": "}"}})", "```json\n{\"a\": {\"b\": \"}\"}}\n```",
                             "Sure! Here it is: {\"a\": {\"b\": \"}\"}} Have fun."})
        EXPECT_EQ(Reply::object(text), object) << text;
    for (const char* none :
         {"", "no", "}{", "{", "}", "[1]", R"({"a": 1} and {"b": 2})", R"({"a": })", "{\xff}"})
        EXPECT_EQ(Reply::object(none), json::object()) << none;
}

TEST(Reply, survivesDepthAndSize) {
    const std::string deep = R"({"a": )" + std::string(10'000, '[') + std::string(10'000, ']') + "}";
    EXPECT_EQ(Reply::object(deep), json::object());
    EXPECT_EQ(Reply::object("{" + std::string(40 << 20, ' ') + "}"), json::object());
    // Brackets within a text are no depth, nor does a quoted quote end it.
    const std::string brackets = R"({"a": "\")" + std::string(1000, '[') + R"("})";
    EXPECT_EQ(Reply::object(brackets)["a"], '"' + std::string(1000, '['));
}
