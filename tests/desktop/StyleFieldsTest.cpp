#include "app/desktop/captions/StyleFields.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(StyleFields, showEveryFieldThatAnOwnerSetsAndWhichAreHisOwn) {
    CaptionStyle own;
    own.size = 99;
    const auto list = StyleFields::shown(own, own.over(CaptionStyle::builtIn()[0]));
    std::size_t fields = 0;
    CaptionStyle::fields([&](const auto&... field) { fields = sizeof...(field); });
    EXPECT_EQ(list.size(), fields - 3) << "all but id, name and base";
    for (const auto& one : list) {
        const auto field = one.toMap();
        EXPECT_EQ(field["changed"].toBool(), field["key"] == "size") << field["key"].toString().toStdString();
        EXPECT_TRUE(field["value"].isValid());
    }
}
