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

TEST(ParameterRows, haveTheControlOfTheirType) {
    const auto book = bookOf({{"a", {.type = "text", .label = "Title", .value = "Hello"}},
                              {"b", {.type = "number", .value = "0.4", .min = 0, .max = 2}},
                              {"c", {.type = "choice", .value = "up", .options = {{"down", "up"}}}},
                              {"d", {.type = "toggle", .value = "true"}},
                              {"e", {.type = "colour", .value = "FFD23F"}},
                              {"f", {.type = "media"}},
                              {"g", {.type = "a type of next year", .value = "words"}}});
    const auto rows = ParameterRows::of(book, std::nullopt);
    ASSERT_EQ(rows.size(), 8) << "a heading and all of them";
    EXPECT_EQ(row(rows, "value.a").name, "Title");
    EXPECT_EQ(row(rows, "value.b").current.toDouble(), 0.4);
    EXPECT_EQ(row(rows, "value.b").to, 2);
    EXPECT_EQ(row(rows, "value.c").current, 1);
    EXPECT_EQ(row(rows, "value.d").current, true);
    EXPECT_EQ(row(rows, "value.e").control, InspectorRow::Control::colour);
    EXPECT_EQ(row(rows, "value.f").control, InspectorRow::Control::media);
    EXPECT_EQ(row(rows, "value.g").control, InspectorRow::Control::text);
    for (const auto& one : rows) EXPECT_FALSE(one.changed) << one.id;
    EXPECT_TRUE(ParameterRows::of(Book(), std::nullopt).empty());
}

TEST(ParameterRows, beginWithWhatIsSaid) {
    const auto book = bookOf({{"background", {.type = "colour"}},
                              {"down", {.type = "number"}},
                              {"subtitle", {.type = "text"}},
                              {"title", {.type = "text"}}});
    QStringList names;
    for (const auto& one : ParameterRows::of(book, std::nullopt)) names << one.name;
    EXPECT_EQ(names, (QStringList{"Parameters", "Title", "Subtitle", "Background", "Down"}));
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
    EXPECT_EQ(values->at("none"), "x");
    ParameterRows::set(values, book, "value.unknown", "y");
    ParameterRows::set(values, book, "zoom", 3);
    EXPECT_EQ(values->size(), 1);
}

TEST(ParameterRows, fillInTextsAndTakeThemBack) {
    const auto book = bookOf({{"b", {.type = "number", .value = "0.4"}},
                              {"c", {.type = "choice", .value = "up", .options = {{"down", "up"}}}},
                              {"d", {.type = "toggle", .value = "0"}},
                              {"t", {.type = "toggle", .value = "true"}}});
    std::optional<Values> values;
    ParameterRows::set(values, book, "value.b", 1.0 / 3);
    ParameterRows::set(values, book, "value.c", 0);
    ParameterRows::set(values, book, "value.d", true);
    ParameterRows::set(values, book, "value.t", false);
    EXPECT_EQ(values, (Values{{"b", "0.333333"}, {"c", "down"}, {"d", "1"}, {"t", "false"}}));
    EXPECT_TRUE(row(ParameterRows::of(book, values), "value.c").changed);
    for (const auto* id : {"value.b", "value.c", "value.d", "value.t"})
        ParameterRows::set(values, book, id, QVariant());
    EXPECT_EQ(values, std::nullopt);
}
