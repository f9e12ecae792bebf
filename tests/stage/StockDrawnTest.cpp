#include "core/playbooks/Stock.h"
#include "core/render/stage/VisibleBounds.h"
#include "tests/stage/Staged.h"

#include <algorithm>

#include <gtest/gtest.h>

using namespace murbo;

namespace {

constexpr Size frames[] = {{1080, 1920}, {1920, 1080}, {1080, 1080}};

/// A playbook of the stock in its middle, on nothing.
Bitmap drawn(const std::string& id, const Values& values, Size frame) {
    const auto& books = Stock::books();
    const auto book =
        std::find_if(books.begin(), books.end(), [&](const Book& each) { return each.id() == id; });
    Staged stage(frame.width, frame.height);
    PlacedOverlay placed;
    placed.end = book->playbook.naturalLength();
    placed.book = *book;
    placed.values = book->values(values);
    const Stage::Scene scene{Image(), std::nullopt, {}, stage.plan, stage.media};
    return stage.drawn(Stage::draw(placed, placed.end * 0.45, scene, Image()));
}

bool hasFonts() {
    return !VisibleBounds(drawn("stock.label", {{"name", "I"}}, frames[0])).empty();
}

/// The rows that hold a colour brighter than any background here.
std::pair<int, int> brightRows(const Bitmap& bitmap) {
    std::pair<int, int> rows{bitmap.height(), 0};
    for (int y = 0; y < bitmap.height(); ++y)
        for (int x = 0; x < bitmap.width(); ++x)
            if (bitmap.row(y)[x * 4] > 100) rows = {std::min(rows.first, y), y};
    return rows;
}

}

TEST(StockDrawn, longWordsStayInTheFrame) {
    if (!hasFonts()) GTEST_SKIP() << "No font is installed.";
    const std::string words = "The one who never leaves the house in time";
    for (const Size frame : frames)
        for (const auto& [id, name] : {std::pair{"stock.label", "name"}, {"stock.hook", "title"}}) {
            const VisibleBounds bounds(drawn(id, {{name, words}}, frame));
            ASSERT_FALSE(bounds.empty()) << id;
            EXPECT_GT(bounds.left, frame.width * 0.01) << id << " in " << frame.width;
            EXPECT_LT(bounds.right, frame.width * 0.99) << id << " in " << frame.width;
            EXPECT_GT(bounds.top, 0) << id << " in " << frame.width;
            EXPECT_LT(bounds.bottom, frame.height) << id << " in " << frame.width;
        }
}

TEST(StockDrawn, theLinesOfATitleCardLieApart) {
    if (!hasFonts()) GTEST_SKIP() << "No font is installed.";
    for (const Size frame : frames) {
        const auto title =
            brightRows(drawn("stock.generator.title", {{"title", "The end"}, {"subtitle", ""}}, frame));
        const auto under = brightRows(
            drawn("stock.generator.title", {{"title", ""}, {"subtitle", "and where it ended"}}, frame));
        ASSERT_LT(title.first, title.second);
        ASSERT_LT(under.first, under.second);
        EXPECT_LT(title.second, under.first) << frame.width;
    }
}

TEST(StockDrawn, whatWaitsForAFileShowsAStandIn) {
    if (!hasFonts()) GTEST_SKIP() << "No font is installed.";
    for (const char* id : {"stock.picture-sticker", "stock.generator.picture"})
        EXPECT_FALSE(VisibleBounds(drawn(id, {}, frames[0])).empty()) << id;
}
