#include "app/desktop/captions/StyleFields.h"

#include <limits>

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

TEST(StyleFields, takeOnlyWhatAFieldMayHold) {
    const auto infinity = std::numeric_limits<double>::infinity();
    const struct {
        const char* key;
        QVariant value;
        bool taken;
    } cases[] = {{"size", 90, true},          {"size", "x", false},     {"size", infinity, false},
                 {"fill", "FF00aa", true},    {"fill", "", false},      {"outline", "", true},
                 {"outline", "red", false},   {"motion", "rise", true}, {"motion", "spin", false},
                 {"exit", "sink", true},      {"shadow", true, true},   {"most", 30.0, true},
                 {"id", "x", false},          {"nothing", 1, false},    {"font", QString(500, 'x'), false},
                 {"font", "Mitr, Noto", true}};
    for (const auto& [key, value, taken] : cases) {
        CaptionStyle style;
        EXPECT_EQ(StyleFields::set(style, key, value), taken) << key << " " << value.toString().toStdString();
        EXPECT_EQ(style != CaptionStyle(), taken) << key;
    }
}

TEST(StyleFields, keepNumbersWithinTheirEndsAndLetGoOfThem) {
    CaptionStyle style;
    StyleFields::set(style, "weight", 7);
    StyleFields::set(style, "most", 1e12);
    EXPECT_EQ(style.weight, 1);
    EXPECT_EQ(style.most, 80);
    StyleFields::clear(style, "weight");
    StyleFields::clear(style, "most");
    EXPECT_EQ(style, CaptionStyle());
}
