#include "platform/base/Json.h"
#include "platform/base/Problem.h"
#include "tests/ProblemOf.h"

#include <gmock/gmock.h>
#include <sys/resource.h>

using namespace murbo;

namespace {

std::string repeated(std::string_view text, std::size_t times) {
    std::string result;
    result.reserve(text.size() * times);
    for (std::size_t count = 0; count < times; ++count) result += text;
    return result;
}

long peakMegabytes() {
    rusage usage{};
    ::getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss / 1024;
}

}

TEST(Json, whatIsNoJsonIsAProblem) {
    // What the library could be set up to let pass, and what is no text or no number.
    for (const char* text : {"", "{", "[1,]", "NaN", "1e999", "-1e999", "1 2", "// no", R"("\ud800")",
                             "\"\xFF\"", "\"\xE0\x80\x80\"", "\"tab\there\""})
        EXPECT_THROW(Json::parse(text), Problem) << text;
    EXPECT_THROW(Json::parse(std::string_view("\0", 1)), Problem);
}

TEST(Json, depthHasALimitThatQuotedBracketsDoNotCountFor) {
    const auto nested = [](std::size_t depth) { return repeated("[", depth) + repeated("]", depth); };
    EXPECT_NO_THROW(Json::parse(nested(Json::deepest)));
    EXPECT_THROW(Json::parse(nested(Json::deepest + 1)), Problem);
    EXPECT_NO_THROW(Json::parse('"' + repeated("[\\\"", 1000) + '"'));
    EXPECT_NO_THROW(Json::parse('"' + repeated("\\\\[", 1000) + '"'));
    EXPECT_NO_THROW(Json::parse("[" + repeated("{\"a\":[]},", 1000) + "1]")) << "side by side";
}

TEST(Json, aHundredMegabytesOfNothingAreRefusedAtOnce) {
    // Nothing is built first, which the words and the memory say. What grew with the square of so much would
    // not come to its end at all.
    const std::string deep = "The JSON is nested too deeply.";
    const std::string full = "The JSON holds too many values.";
    const std::pair<std::string_view, std::string> hostile[] = {
        {"[", deep},
        {"{\"a\":", deep},
        {"[],", full},
        {"0,", full},
        {"\"\",", full},
        {"[[],", deep},
        {"]", "It is not valid JSON"},
    };
    for (const auto& [piece, words] : hostile) {
        auto text = std::string(piece.back() == ',' ? "[" : "");
        text += repeated(piece, 100'000'000 / piece.size());
        EXPECT_THAT(problemOf([&] { Json::parse(text); }), testing::StartsWith(words)) << piece;
    }
    EXPECT_LT(peakMegabytes(), 1500);
}

TEST(Json, wholeNumbersAreThoseThatSixtyFourBitsHold) {
    for (const auto& [text, value] : {std::pair{"9223372036854775807", INT64_MAX},
                                      {"-9223372036854775808", INT64_MIN},
                                      {"-9223372036854775808.0", INT64_MIN},
                                      {"9223372036854774784.0", INT64_MAX - 1023},
                                      {"-0.0", 0L},
                                      {"3e2", 300L}})
        EXPECT_EQ(Json::parse(text).root().integer(), value) << text;
    for (const char* text : {"9223372036854775808", "9223372036854775808.0", "-9223372036854777856.0", "0.5",
                             "-1.5", "1e300", "\"1\"", "null", "true", "[1]"})
        EXPECT_THROW(Json::parse(text).root().integer(), JsonProblem) << text;
}
