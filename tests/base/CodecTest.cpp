#include "platform/base/Codec.h"
#include "platform/base/Problem.h"
#include "tests/ProblemOf.h"

#include <limits>

#include <gtest/gtest.h>

using namespace murbo;

namespace {

struct Leaf {
    enum class Colour { red, darkBlue };
    Colour colour = Colour::red;
    std::optional<double> weight;
    bool operator==(const Leaf&) const = default;
    static constexpr auto fields(auto visit) {
        return visit(field("colour", &Leaf::colour), field("weight", &Leaf::weight));
    }
};
static_assert(Record<Leaf>);
constexpr auto rawTexts(Leaf::Colour) {
    return std::array<std::string_view, 2>{"red", "dark blue"};
}

struct Tree {
    std::int64_t rings = 0;
    List<Leaf> leaves;
    std::optional<std::map<std::string, Leaf>> named;
    Data seed;
    bool operator==(const Tree&) const = default;
    static constexpr auto fields(auto visit) {
        return visit(field("rings", &Tree::rings), field("leaves", &Tree::leaves),
                     field("named", &Tree::named), field("seed", &Tree::seed));
    }
};
static_assert(Record<Tree>);

struct Garden {
    bool open = true;
    std::vector<Tree> trees;
    static constexpr bool everyKeyMayBeMissing = true;
    static constexpr auto fields(auto visit) {
        return visit(field("open", &Garden::open), field("trees", &Garden::trees));
    }
};
static_assert(Record<Garden>);

/// A list that misses a member of its record is no list.
struct Forgetful {
    double told = 0;
    double forgotten = 0;
    static constexpr auto fields(auto visit) { return visit(field("told", &Forgetful::told)); }
};
static_assert(!Record<Forgetful>);

}

TEST(Codec, writesKeysInByteOrderAndLeavesOutWhatHasNoValue) {
    Tree tree{3, std::vector<Leaf>{{Leaf::Colour::darkBlue, 0.1}, {}}, {}, Data{"\x01\x02"}};
    EXPECT_EQ(Codec::encode(tree), R"({
  "leaves": [
    {
      "colour": "dark blue",
      "weight": 0.1
    },
    {
      "colour": "red"
    }
  ],
  "rings": 3,
  "seed": "AQI="
}
)");
    tree.named = {{"z", {}}, {"B", {}}, {"ä", {}}};
    tree.leaves = {};
    EXPECT_EQ(Codec::encode(tree, JsonWriter::Layout::compact),
              R"({"leaves":[],"named":{"B":{"colour":"red"},"z":{"colour":"red"},"ä":{"colour":"red"}},)"
              R"("rings":3,"seed":"AQI="})");
    EXPECT_EQ(Codec::decode<Tree>(Codec::encode(tree)), tree);
}

TEST(Codec, namesThePlaceOfAFault) {
    const std::pair<const char*, const char*> faults[] = {
        {R"([])", "an object is expected"},
        {R"({"rings": 1, "leaves": []})", "the key “seed” is missing"},
        {R"({"rings": 1.5, "leaves": [], "seed": ""})", "rings: a whole number is expected"},
        {R"({"rings": null, "leaves": [], "seed": ""})", "rings: a value is needed."},
        {R"({"rings": 1, "leaves": {}, "seed": ""})", "leaves: a list is expected"},
        {R"({"rings": 1, "leaves": [{"colour": "red"}, 4], "seed": ""})", "leaves[1]: an object is expected"},
        {R"({"rings": 1, "leaves": [{"colour": "Red"}], "seed": ""})",
         "leaves[0].colour: this text is not one of those known"},
        {R"({"rings": 1, "leaves": [{"colour": "red", "weight": "2"}], "seed": ""})",
         "leaves[0].weight: a number is expected"},
        {R"({"rings": 1, "leaves": [], "named": {"a": {}}, "seed": ""})",
         "named.a: the key “colour” is missing"},
        {R"({"rings": 1, "leaves": [], "seed": []})", "seed: a text is expected"},
        {R"({"rings": 1, "leaves": [], "seed": "A==="})", "seed: base64 text is expected"},
    };
    for (const auto& [text, fault] : faults)
        EXPECT_EQ(problemOf([&] { Codec::decode<Tree>(text); }), fault) << text;
}

TEST(Codec, takesWhatIsHarmless) {
    for (const char* text : {
             R"({"rings": 1.0, "leaves": [], "seed": "", "named": null, "unknown": [{"deep": [1]}]})",
             R"({"rings": 7, "rings": 1, "leaves": [], "seed": ""})",
             R"({"rings": 10e-1, "leaves": [], "seed": ""})",
         })
        EXPECT_EQ(Codec::decode<Tree>(text).rings, 1) << text;
    EXPECT_EQ(Codec::decode<Tree>(R"({"rings": -9223372036854775808, "leaves": [], "seed": ""})").rings,
              std::numeric_limits<std::int64_t>::min());
    EXPECT_EQ(Codec::decode<std::optional<bool>>("null"), std::nullopt);
}

TEST(Codec, aLenientRecordTakesItsDefaultsButNoWrongKind) {
    EXPECT_TRUE(Codec::decode<Garden>("{}").open);
    EXPECT_TRUE(Codec::decode<Garden>(R"({"open": null})").open);
    EXPECT_FALSE(Codec::decode<Garden>(R"({"open": false})").open);
    EXPECT_EQ(problemOf([] { Codec::decode<Garden>(R"({"open": 1})"); }), "open: true or false is expected");
    EXPECT_THROW(Codec::decode<Garden>(R"({"trees": [{}]})"), Problem);
}

TEST(Codec, refusesToWriteWhatNobodyCouldRead) {
    Tree tree{1, std::vector<Leaf>{{}, {Leaf::Colour::red, std::numeric_limits<double>::infinity()}}, {}, {}};
    EXPECT_EQ(problemOf([&] { Codec::encode(tree); }), "leaves[2].weight: this number is not finite");
    EXPECT_THROW(Codec::encode(std::string("\xE0\xB8 cut short")), Problem);
}

TEST(Codec, writesNoMoreThanCanBeReadAgain) {
    std::vector<std::int64_t> many(Json::maxValues - 3);
    EXPECT_EQ(Codec::decode<std::vector<std::int64_t>>(Codec::encode(many)).size(), many.size());
    many.resize(Json::maxValues);
    EXPECT_THROW(Codec::encode(many), Problem);
}

TEST(Codec, numbersComeBackToTheLastBit) {
    for (const double number :
         {0.1, 1.0 / 3, 5e-324, 1.7976931348623157e308, 1e22, 123456789.123456789, -2.5e-9})
        EXPECT_EQ(Codec::decode<double>(Codec::encode(number)), number);
    EXPECT_EQ(Codec::encode(-0.0), Codec::encode(0.0));
}

TEST(Codec, textsComeBackWhateverTheyHold) {
    std::string all;
    for (int c = 0; c < 128; ++c) all += static_cast<char>(c);
    all += "ไทย 😂 \u2028 “quoted”";
    EXPECT_EQ(Codec::decode<std::string>(Codec::encode(all)), all);
}
