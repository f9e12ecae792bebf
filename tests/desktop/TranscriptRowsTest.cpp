#include "app/desktop/transcript/TranscriptRows.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(TranscriptRows, aHostileTextIsOneBlock) {
    bool whole = false;
    EXPECT_EQ(TranscriptRows::shown("a\nb\r\nc\x01"
                                    "d\xE2\x80\xA9"
                                    "e\xE2\x80\xA8"
                                    "f",
                                    whole),
              "a b  c d e f");
    EXPECT_TRUE(whole);
    const auto framed = TranscriptRows::shown("x\xEF\xB7\x90y\xEF\xB7\x91z\xEF\xBF\xBC", whole);
    EXPECT_EQ(framed.size(), 6);
    EXPECT_FALSE(framed.contains(QChar(0xfdd0)) || framed.contains(QChar(0xfffc)));
    EXPECT_EQ(TranscriptRows::shown(std::string("a\0b", 3), whole), "a b");
    EXPECT_EQ(TranscriptRows::shown("\xff\xfe broken", whole).size(), 9);
    const auto cut = TranscriptRows::shown(std::string(1000000, 'x'), whole);
    EXPECT_FALSE(whole) << "what is not video whole is not corrected";
    EXPECT_LT(cut.size(), 5000);
}
