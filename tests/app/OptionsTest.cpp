#include "app/options/Options.h"

#include <set>

#include <gmock/gmock.h>

using namespace murbo;

namespace {

std::string matched(const std::vector<std::string>& words) {
    const auto match = Options::match(Arguments(words));
    return match ? match->option->name : "";
}

}

TEST(Options, matchWithEnoughWordsAndTheUpperOneFirst) {
    EXPECT_EQ(matched({"murbo", "--still", "p", "V1", "1", "out"}), "--still");
    EXPECT_EQ(matched({"murbo", "--still", "p", "V1", "1"}), "") << "a word is missing";
    EXPECT_EQ(matched({"murbo", "--help", "--new", "p"}), "--new");
    EXPECT_EQ(matched({"murbo", "--new", "--help"}), "--new") << "whatever follows is its word";
    EXPECT_EQ(matched({"murbo", "new", "p"}), "");
    const auto match = Options::match(Arguments({"murbo", "--new", "a.mbproj", "more"}));
    EXPECT_EQ(match->words, (std::vector<std::string>{"a.mbproj", "more"}));
    EXPECT_EQ(match->option->program, Options::Program::headless);
}

TEST(Options, eachIsShownOnceWithAsManyWordsAsItNeeds) {
    std::set<std::string> names;
    const auto usage = Options::usage();
    for (const auto& option : Options::all()) {
        EXPECT_TRUE(names.insert(option.name).second) << option.name;
        EXPECT_THAT(usage,
                    testing::HasSubstr("\n  murbo " + std::string(option.name) + (*option.words ? " " : "") +
                                       option.words + "\n      " + option.meaning + "\n"));
        const std::string words = option.words;
        const auto needed = words.substr(0, words.find(" ["));
        const auto shown =
            words.starts_with("[") || words.empty()
                ? 0
                : 1 + std::count(needed.begin(), needed.end(), ' ') - 2 * (needed.find(" | ") != needed.npos);
        EXPECT_EQ(static_cast<std::ptrdiff_t>(option.minWords), shown) << option.name;
    }
}
