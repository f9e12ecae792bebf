#include "core/playbooks/ParameterName.h"

#include <string_view>
#include <utility>

#include <gtest/gtest.h>

using namespace murbo;

TEST(ParameterName, goesAsFarAsLettersDigitsAndMarks) {
    const std::pair<std::string_view, std::string_view> cases[] = {
        {"title", "title"}, {"title2_b!", "title2_b"},
        {"ชื่อ เรื่อง", "ชื่อ"},  {"été-1", "été"},
        {"-a", ""},         {"", ""},
        {"a\xFF", "a"},     {"a🎉", "a"}};
    for (const auto& [text, name] : cases)
        EXPECT_EQ(text.substr(0, ParameterName::length(text)), name) << text;
}
