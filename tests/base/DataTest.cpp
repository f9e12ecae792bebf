#include "platform/base/Data.h"

#include <gtest/gtest.h>

namespace murbo {

TEST(Data, base64OfEveryLength) {
    // RFC 4648, section 10
    const std::pair<const char*, const char*> known[] = {{"", ""},
                                                         {"f", "Zg=="},
                                                         {"fo", "Zm8="},
                                                         {"foo", "Zm9v"},
                                                         {"foob", "Zm9vYg=="},
                                                         {"fooba", "Zm9vYmE="},
                                                         {"foobar", "Zm9vYmFy"},
                                                         {"\xFB\xFF\xBF", "+/+/"}};
    for (const auto& [bytes, text] : known) {
        EXPECT_EQ(Data{bytes}.base64(), text);
        EXPECT_EQ(Data::parse(text)->bytes, bytes);
    }
    for (const char* text : {"Z", "Zg", "Zg=", "Z===", "====", "Zg==Zg==", "Zm 9", "Zm9-", "Zg=v"})
        EXPECT_FALSE(Data::parse(text)) << text;
}

}
