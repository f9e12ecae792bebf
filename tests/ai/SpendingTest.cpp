#include "core/ai/Spending.h"
#include "platform/store/SettingsStore.h"
#include "tests/Environment.h"
#include "tests/ai/OwnSettings.h"

#include <gmock/gmock.h>

using namespace murbo;
using testing::HasSubstr;

TEST(Spending, holdsADayToItsLimitOverAllProjects) {
    const auto& folder = ownSettings();
    folder.file("state/murbo/spent/2001-01-01", "100\n");
    Spending::add(1.25);
    Spending::add(0.5);
    EXPECT_DOUBLE_EQ(Spending::today(), 1.75);
    EXPECT_EQ(Spending::refusal(1000), std::nullopt) << "there is no limit";
    SettingsStore::standard().set("spendCap", 2.0);
    EXPECT_EQ(Spending::refusal(0.25), std::nullopt);
    EXPECT_EQ(Spending::refusal(0.26), "This would pass your limit of $2.00 a day: $1.75 was spent today.");
    EXPECT_FALSE(std::filesystem::exists(folder / "state/murbo/spent/2001-01-01"));
}

TEST(Spending, addsUpAProjectsLogByDayTaskAndModel) {
    Activity one{"ask", "Cut to instruction: reading", "strong",
                 Dates::parse("2026-01-10T12:00:00Z").value()};
    one.cost = 0.02;
    auto two = one;
    two.title = "Cut to instruction: reading on (1)";
    auto three = one;
    three.title = "Describe C01, C02";
    three.engine = "light";
    three.started = Dates::parse("2026-01-12T12:00:00Z").value();
    const auto text = Spending::summary({one, two, three});
    for (const char* line :
         {"$0.060 in all\n", "  $0.040  2026-01-10\n", "  $0.020  2026-01-12\n",
          "  $0.040  Cut to instruction\n", "  $0.020  Describe Clips\n", "  $0.040  strong\n"})
        EXPECT_THAT(text, HasSubstr(line));
    {
        const Environment farEast("TZ", "<+14>-14");
        tzset();
        EXPECT_THAT(Spending::summary({one}), HasSubstr("2026-01-11\n")) << "a day where its owner lives";
    }
    tzset();
    one.cost = std::nullopt;
    EXPECT_EQ(Spending::summary({one}), "Nothing was spent in this project.\n");
}
