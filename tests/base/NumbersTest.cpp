#include "platform/base/Numbers.h"

#include <gtest/gtest.h>

namespace murbo {

TEST(Numbers, readWholeTextsAlone) {
    for (const auto& [text, value] : {std::pair{"83.5", 83.5}, {"-1e3", -1000.0}, {"+.5", 0.5}, {"0", 0.0}})
        EXPECT_EQ(Numbers::parse(text), value) << text;
    for (const auto* text : {"", " 1", "1 ", "1,5", "+-1", "--1", "nan", "inf", "1e999", "0x1p", "1s"})
        EXPECT_EQ(Numbers::parse(text), std::nullopt) << text;
}

TEST(Numbers, haveTwoDigitsInATag) {
    for (const auto& [number, text] : {std::pair{0, "00"}, {9, "09"}, {10, "10"}, {123, "123"}})
        EXPECT_EQ(Numbers::twoDigits(number), text);
}

}
