#include "core/render/export/Subtitles.h"

#include <cmath>

#include <gtest/gtest.h>

using namespace murbo;

TEST(Subtitles, timesHaveTwoDigitsAndThree) {
    const std::pair<double, const char*> cases[] = {
        {0, "00:00:00,000"},        {3661.5, "01:01:01,500"},    {59.9996, "00:01:00,000"},
        {0.0004, "00:00:00,000"},   {-5, "00:00:00,000"},        {NAN, "00:00:00,000"},
        {HUGE_VAL, "99:59:59,000"}, {-HUGE_VAL, "00:00:00,000"}, {35999.001, "09:59:59,001"},
    };
    for (const auto& [seconds, text] : cases) EXPECT_EQ(Subtitles::time(seconds), text) << seconds;
}

TEST(Subtitles, blocksStandApartByOneEmptyLine) {
    EXPECT_EQ(Subtitles::srt({}), "");
    EXPECT_EQ(Subtitles::srt({{.start = 0, .end = 1.5, .text = "สวัสดี 😂"},
                              {.start = 2, .end = 3, .text = "two\r\n\n\nlines\n"}}),
              "1\n00:00:00,000 --> 00:00:01,500\nสวัสดี 😂\n"
              "\n"
              "2\n00:00:02,000 --> 00:00:03,000\ntwo\nlines\n");
}
