#include "core/playbooks/Book.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(Book, laysOverridesOverTheDefaultsOfItsParameters) {
    const Book book{Playbook::decode(R"({"name": "A", "layers": [], "params":
        {"a": {"type": "text", "value": "one"}, "b": {"type": "text", "value": "two"}, "c": {"type": "text"}}})"),
                    std::nullopt};
    EXPECT_EQ(book.values(std::nullopt), (Values{{"a", "one"}, {"b", "two"}}));
    EXPECT_EQ(book.values(Values{{"b", "2"}, {"d", "4"}}), (Values{{"a", "one"}, {"b", "2"}, {"d", "4"}}));
    EXPECT_EQ(book.version(), 1);
    EXPECT_FALSE(book.file("assets/a.png")) << "one of the stock has no files";
}
