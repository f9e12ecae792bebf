#include "app/desktop/inspector/BookShelf.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(BookShelf, findsWhatPlaysAndWhatIsNewer) {
    BookShelf shelf(std::nullopt);
    const auto* book = shelf.book("stock.hook", 1);
    ASSERT_TRUE(book);
    EXPECT_EQ(shelf.book("stock.hook", 1), book) << "read once";
    EXPECT_EQ(shelf.newer("stock.hook", book->version()), std::nullopt);
    EXPECT_EQ(shelf.newer("stock.hook", book->version() - 1), book->version());
    EXPECT_FALSE(shelf.book("nobody's", 1));
    EXPECT_EQ(shelf.newer("nobody's", 1), std::nullopt);
}
