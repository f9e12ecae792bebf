#include "core/playbooks/Stock.h"
#include "platform/text/Fonts.h"
#include "tests/Approved.h"
#include "tests/Sheet.h"
#include "tests/stage/Staged.h"

#include <fmt/format.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

using namespace murbo;

namespace {

/// A frame over footage whose content and face lie apart.
struct FullStage : Staged {
    FullStage(int width, int height) : Staged(width, height) {
        below = pattern(width, height);
        source = pattern(480, 270);
        framing = {.content = {0, 0.1, 0.6, 0.9}, .face = {0.65, 0.5, 0.3, 0.45}};
    }
};

}

TEST(StageSheet, theStockIsDrawnAsApproved) {
    if (!Fonts::installed("Nunito")) GTEST_SKIP() << "The fonts that come with the program are not here.";
    Sheet sheet("stage/approved/stock.png", 15);
    for (const Book& book : Stock::books())
        for (const auto& [width, height] : {std::pair{1080, 1920}, {1920, 1080}}) {
            const FullStage staged(width, height);
            PlacedOverlay placed;
            placed.end = book.playbook.naturalLength() + 0.25; // held a little longer
            placed.book = book;
            placed.values = book.values({});
            for (const double share : {0.03, 0.1, 0.45, 0.85, 0.97})
                sheet.add(fmt::format("{} at {}", book.id(), share), staged.image(placed, share * placed.end),
                          staged.plan.frame);
        }
    sheet.expectApproved();
}

TEST(StageSheet, layersAreDrawnAsApproved) {
    if (!Fonts::installed("Nunito")) GTEST_SKIP() << "The fonts that come with the program are not here.";
    Sheet sheet("stage/approved/layers.png", 24);
    for (const auto& line : linesOf("stage/approved/layers.txt")) {
        const auto given = nlohmann::json::parse(line);
        auto whole = R"({"name": "Test", "timing": {"in": 0.5, "out": 0.4}})"_json;
        whole.update(given["book"]);
        const bool wide = given.contains("wide");
        const FullStage staged(wide ? 1920 : 1080, wide ? 1080 : 1920);
        PlacedOverlay placed;
        placed.start = given.value("start", 0.0);
        placed.end = given.value("end", 3.0);
        placed.zoom = given.value("zoom", 1.0);
        if (given.contains("focus")) placed.focus = given["focus"];
        placed.overlay.stretch = given.contains("stretch");
        placed.book =
            Book{Playbook::decode(whole.dump()), std::filesystem::path(MURBO_TESTS) / "stage/approved"};
        placed.values = placed.book->values(given.value("values", Values()));
        for (const double time : given.value("at", std::vector<double>{1}))
            sheet.add(fmt::format("{} at {}", line, time), staged.image(placed, time), staged.plan.frame);
    }
    sheet.expectApproved();
}
