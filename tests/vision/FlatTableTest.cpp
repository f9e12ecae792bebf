#include "platform/vision/FlatTable.h"
#include "tests/ProblemOf.h"
#include "tests/vision/FlatBuffers.h"

#include <gtest/gtest.h>

using namespace murbo;
using namespace murbo::FlatBuffers;

namespace {

/// The whole of a file: where its table stands, and the table.
std::string file(const std::string& table) {
    return bytes(std::uint32_t(4)) + table;
}

const std::string outside = "The file leads outside itself.";

}

TEST(FlatTable, fieldsAreThereOrHaveTheirDefault) {
    const auto whole = file(table({258, none, -7}));
    const auto root = FlatTable::root(whole);
    EXPECT_EQ(root.number(0), 258);
    EXPECT_EQ(root.byte(0), 2) << "the lowest byte";
    EXPECT_EQ(root.number(1, 5), 5);
    EXPECT_EQ(root.byte(1, 6), 6);
    EXPECT_EQ(root.number(2), -7);
    EXPECT_EQ(root.byte(2), 249);
    EXPECT_EQ(root.number(3, 9), 9) << "beyond the last";
    EXPECT_TRUE(root.bytes(1).empty() && root.numbers(1, 0).empty() && root.tables(1, 0).empty() &&
                !root.table(1));
}

TEST(FlatTable, vectorsAndTablesAreFollowed) {
    const auto whole =
        file(table({numbers({3, -4, 5}), text("words"), tables({table({1}), table({2})}), table({none, 8})}));
    const auto root = FlatTable::root(whole);
    EXPECT_EQ(root.numbers(0, 3), (std::vector{3, -4, 5}));
    EXPECT_EQ(root.bytes(1), "words");
    const auto two = root.tables(2, 2);
    ASSERT_EQ(two.size(), 2u);
    EXPECT_EQ(two[0].number(0), 1);
    EXPECT_EQ(two[1].number(0), 2);
    EXPECT_EQ(root.table(3)->number(1), 8);
    EXPECT_EQ(problemOf([&] { root.numbers(0, 2); }), "The file lists more than it may.");
    EXPECT_EQ(problemOf([&] { root.tables(2, 1); }), "The file lists more than it may.");
}

TEST(FlatTable, whatLeadsOutsideIsRefused) {
    const auto whole = file(table({numbers({3, -4, 5})}));
    for (std::size_t length = 0; length < whole.size(); ++length)
        EXPECT_EQ(
            problemOf([&] { FlatTable::root(std::string_view(whole).substr(0, length)).numbers(0, 9); }),
            outside)
            << length;
    EXPECT_EQ(problemOf([&] { FlatTable::root(bytes(std::uint32_t(0xFFFFFFF0))); }), outside);
    EXPECT_EQ(problemOf([&] { FlatTable::root(bytes(std::uint32_t(4)) + bytes(std::int32_t(5))); }), outside)
        << "the list of its fields would stand before the file";
    EXPECT_EQ(problemOf([&] { FlatTable::root(file(table({list(0x40000001, "abcd")}))).numbers(0, ~0ULL); }),
              outside)
        << "so many that their bytes would overflow";
    EXPECT_EQ(problemOf([&] { FlatTable::root(file(table({list(3, "ab")}))).bytes(0); }), outside);
    EXPECT_EQ(FlatTable::root(file(table({list(2, "ab")}))).bytes(0), "ab");
}

TEST(FlatTable, aListOfFieldsThatIsTooShortHasNone) {
    const auto tiny =
        bytes(std::uint32_t(4)) + bytes(std::int32_t(-4)) + bytes(std::uint16_t(3)) + bytes(std::uint16_t(4));
    EXPECT_EQ(FlatTable::root(tiny).number(0, 7), 7);
}
