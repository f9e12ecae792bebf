#include "platform/base/Dates.h"

#include <gtest/gtest.h>

using namespace murbo;
using namespace std::chrono;

TEST(Dates, areReadAsTheyAreWritten) {
    const Date date = sys_days(2026y / January / 10) + 20h + 15min + 30s;
    EXPECT_EQ(Dates::text(date), "2026-01-10T20:15:30Z");
    EXPECT_EQ(Dates::text(date + 999ms), "2026-01-10T20:15:30Z");
    EXPECT_EQ(Dates::text(Date(-1s)), "1969-12-31T23:59:59Z");
    for (const char* same : {"2026-01-10T20:15:30Z", "2026-01-10T20:15:30.000Z", "2026-01-11T03:15:30+07:00",
                             "2026-01-10T15:15:30-0500", "2026-01-10T16:45:30-03:30",
                             "2026-01-11T01:45:30+05:30", "2026-01-10T20:15:30.0000009Z"})
        EXPECT_EQ(Dates::parse(same), date) << same;
    EXPECT_EQ(Dates::parse("2026-01-10T20:15:30.25Z"), date + 250ms);
    EXPECT_EQ(Dates::parse("2026-01-10T20:15:30.000007+00:00"), date + 7us);
    EXPECT_EQ(Dates::parse("2026-01-10T20:15:60Z"), date + 30s) << "a leap second";
    EXPECT_EQ(Dates::text(Date(-1ms)), "1969-12-31T23:59:59Z")
        << "before 1970 as well, no second is rounded up";
    for (const char* text : {"1678-01-01T00:00:00Z", "2261-12-31T23:59:59Z"})
        EXPECT_EQ(Dates::text(*Dates::parse(text)), text) << "the first and the last second of whole years";
}

TEST(Dates, areNoOtherTexts) {
    for (const char* text :
         {"", "2026-01-10", "2026-01-10 20:15:30Z", "2026-01-10T20:15:30", "2026-13-10T20:15:30Z",
          "2026-02-29T20:15:30Z", "2026-01-10T24:15:30Z", "2026-01-10T20:15:30Zx", "2026-01-10T20:15:-3Z",
          "2026-01-10T20:15:30+7", "2026-01-10T20:60:30Z", "2026-01-10T20:15:61Z", "2026-01-00T20:15:30Z",
          "2026-00-10T20:15:30Z", "0042-12-31T23:59:59Z", "1677-12-31T23:59:59Z", "2262-01-01T00:00:00Z",
          "26-01-10T20:15:30Z", "2026-01-10T20:15:30.Z5"})
        EXPECT_EQ(Dates::parse(text), std::nullopt) << text;
}
