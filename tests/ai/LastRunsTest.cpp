#include "core/ai/LastRuns.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(LastRuns, keepOneOfEachKit) {
    std::optional<Runs> runs;
    EXPECT_EQ(LastRuns::of(runs, Kit::ID::look), std::nullopt);
    const murbo::Run sound{.at = 1, .by = murbo::Run::By::mcp};
    const murbo::Run look{.at = 2, .by = murbo::Run::By::app, .with = "m"};
    LastRuns::note(runs, Kit::ID::sound, sound);
    LastRuns::note(runs, Kit::ID::look, {.at = 1});
    LastRuns::note(runs, Kit::ID::look, look);
    EXPECT_EQ(LastRuns::of(runs, Kit::ID::look), look);
    EXPECT_EQ(LastRuns::of(runs, Kit::ID::sound), sound);
    EXPECT_EQ(runs->size(), 2u);
}
