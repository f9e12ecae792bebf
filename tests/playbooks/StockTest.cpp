#include "core/playbooks/Stock.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(Stock, readsWholeAndInItsOrder) {
    const auto& books = Stock::books();
    ASSERT_EQ(books.size(), 25u);
    EXPECT_EQ(books.front().id(), "stock.layout.wide");
    EXPECT_EQ(books.back().id(), "stock.replay");
    for (const auto& book : books) {
        EXPECT_FALSE(book.folder);
        // What a layer asks for by number has a value before anybody fills it in.
        const auto values = book.values(std::nullopt);
        for (const auto& layer : book.playbook.layers)
            for (const auto* num : {&layer.x, &layer.y, &layer.w, &layer.h, &layer.size, &layer.rotation})
                if (*num) {
                    EXPECT_TRUE((*num)->value(values)) << book.id();
                }
        // A layout's border is as thick above and below a panel as beside it, on an upright frame.
        for (std::size_t at = 1; at < book.playbook.layers.size(); ++at) {
            const auto &border = book.playbook.layers[at - 1], &panel = book.playbook.layers[at];
            if (book.playbook.kind != "layout" || border.shape != "round" || !panel.slot) continue;
            EXPECT_NEAR((*border.w->value(values) - *panel.w->value(values)) * 1080,
                        (*border.h->value(values) - *panel.h->value(values)) * 1920, 1)
                << book.id();
        }
    }
}
