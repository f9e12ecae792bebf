#include "core/ai/Ideas.h"
#include "core/ai/LastRuns.h"
#include "tests/ScriptedModel.h"
#include "tests/ai/Told.h"

#include <gmock/gmock.h>

using namespace murbo;
using testing::IsEmpty;

TEST(Ideas, areTakenOneByOne) {
    const Told told;
    const auto reading =
        Ideas::reading(told.clips(), told.clips(), "falls", Video::Aspect::vertical, told.project);
    EXPECT_THAT(reading.ask().messages[1].content, testing::StartsWith("Find videos for this: falls"));
    EXPECT_EQ(reading.ask().maxTokens, 12'000);
    const auto run = LastRuns::now(Run::By::app, "m");
    const auto ideas = Ideas::ideas(
        {{"ideas",
          {{{"title", "No cuts hold up"}, {"cuts", cutsOf({{"C09.01", "C09.02"}})}},
           {{"title", "Falls"}, {"hook", 5}, {"why", "funny"}, {"cuts", cutsOf({{"C02.01", "C02.03"}})}},
           "idea",
           {{"cuts", cutsOf({{"C01.01", "C01.01"}})}}}}},
        reading, "falls", run);
    ASSERT_EQ(ideas.size(), 2u);
    EXPECT_EQ(ideas[0], (Idea{.id = ideas[0].id,
                              .title = "Falls",
                              .why = "funny",
                              .cuts = ideas[0].cuts,
                              .instruction = "falls",
                              .run = run}));
    EXPECT_EQ(ideas[1].title, "Untitled");
    EXPECT_THAT(Ideas::ideas({{"ideas", {{"a", {{"cuts", cutsOf({{"C02.01", "C02.03"}})}}}}}}, reading,
                             std::nullopt, run),
                IsEmpty());
}
