#include "app/desktop/inspector/ParameterRows.h"

#include <algorithm>

#include <gtest/gtest.h>

using namespace murbo;

namespace {

Book bookOf(std::map<std::string, Playbook::Param> params) {
    Book book;
    book.playbook.params = std::move(params);
    return book;
}

const InspectorRow& row(const InspectorRowList& rows, const std::string& id) {
    return *std::ranges::find(rows, id, &InspectorRow::id);
}

}

TEST(ParameterRows, survivesParametersThatMakeNoSense) {
    const auto book = bookOf({{"high", {.type = "number", .value = "5", .min = 9, .max = 1}},
                              {"words", {.type = "number", .value = "many"}},
                              {"none", {.type = "choice", .value = "x"}}});
    const auto rows = ParameterRows::of(book, Values{{"words", "nan"}, {"unknown", "1"}});
    EXPECT_LE(row(rows, "value.high").from, row(rows, "value.high").to);
    EXPECT_EQ(row(rows, "value.words").current.toDouble(), 0);
    EXPECT_EQ(row(rows, "value.none").current, -1);
    std::optional<Values> values;
    ParameterRows::set(values, book, "value.none", 7);
    ParameterRows::set(values, book, "value.unknown", "y");
    ParameterRows::set(values, book, "zoom", 3);
    EXPECT_FALSE(values);
}
