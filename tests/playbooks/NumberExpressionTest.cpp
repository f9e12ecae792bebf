#include "core/playbooks/Playbook.h"

#include <cmath>

#include <gtest/gtest.h>

using namespace murbo;

TEST(NumberExpression, evaluatesSumsOfParameters) {
    const Values values{{"split", "0.3"}, {"a", "2"}, {"word", "yes"}, {"title2_b", "7"}};
    struct Case {
        const char* text;
        std::optional<double> strict;
        std::optional<double> loose;
    };
    const Case cases[] = {{"1-$split", 0.7, 0.7}, {"1-$none", {}, 0}, {"$a/0", 2, 2},
                          {"$a*3+4/2-1", 7, 7},   {"8/2/2", 2, 2},    {"--1", 1, 1},
                          {"-(2+3)*2", -10, -10}, {"2 3", 23, 23},    {"$title2_b", 7, 7},
                          {"$word", {}, 1},       {"", {}, {}},       {"1+", {}, {}},
                          {"(1+2", {}, {}},       {"2 3)", {}, {}},   {"$", {}, {}},
                          {"1..2", {}, {}},       {"1e5", {}, {}}};
    for (const auto& [text, strict, loose] : cases) {
        const auto near = [](std::optional<double> one, std::optional<double> other) {
            return one.has_value() == other.has_value() && (!one || std::abs(*one - *other) < 1e-12);
        };
        EXPECT_TRUE(near(Playbook::evaluate(text, values, true), strict)) << text;
        EXPECT_TRUE(near(Playbook::evaluate(text, values, false), loose)) << text;
    }
}

TEST(NumberExpression, hasNoValueWhereItIsAbsurdlyDeepOrLong) {
    const auto bracketed = [](int depth) {
        std::string text(depth, '(');
        text.push_back('1');
        return text.append(depth, ')');
    };
    EXPECT_EQ(Playbook::evaluate(bracketed(100), {}, true), 1);
    EXPECT_FALSE(Playbook::evaluate(bracketed(100'000), {}, true));
    EXPECT_FALSE(Playbook::evaluate(std::string(100'000, '-') + '1', {}, true));
    const auto sum = [](int terms) {
        std::string text = "1";
        for (int i = 1; i < terms; ++i) text += "+1";
        return text;
    };
    EXPECT_EQ(Playbook::evaluate(sum(500), {}, true), 500);
    EXPECT_FALSE(Playbook::evaluate(sum(501), {}, true));
    EXPECT_FALSE(Playbook::Num::parse(std::string(1000, ' ') + '1'));
    EXPECT_EQ(Playbook::Num::parse("$x")->value({{"x", std::string(2'000, '0')}}), std::nullopt);
}
