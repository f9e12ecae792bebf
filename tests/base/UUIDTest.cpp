#include "platform/base/UUID.h"

#include <set>
#include <string>

#include <gtest/gtest.h>

using namespace murbo;

TEST(UUID, readsWhatItWritesAndNothingElse) {
    const UUID id = UUID::make();
    EXPECT_EQ(UUID::parse(id.text()), id);
    EXPECT_EQ(UUID::parse("e2c56db5-dffb-48d2-b060-d0f5a71096e0")->text(),
              "E2C56DB5-DFFB-48D2-B060-D0F5A71096E0");
    for (const char* text : {"", "E2C56DB5DFFB48D2B060D0F5A71096E0", "E2C56DB5-DFFB-48D2-B060-D0F5A71096E",
                             "E2C56DB5-DFFB-48D2-B060-D0F5A71096E0 ", "E2C56DB5-DFFB-48D2-B060-D0F5A71096EG",
                             "E2C56DB5-DFFB-48D2-B060+D0F5A71096E0"})
        EXPECT_FALSE(UUID::parse(text)) << text;
}

TEST(UUID, aNewOneIsRandomAndSaysSo) {
    std::set<std::string> all;
    for (int time = 0; time < 64; ++time) {
        const auto text = UUID::make().text();
        EXPECT_EQ(text[14], '4'); // RFC 9562, section 5.4
        EXPECT_NE(std::string("89AB").find(text[19]), std::string::npos) << text;
        all.insert(text);
    }
    EXPECT_EQ(all.size(), 64u);
}
