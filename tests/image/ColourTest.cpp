#include "platform/image/Colour.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(Colours, readFromHexWhateverTheHashes) {
    const std::pair<std::string_view, std::optional<Colour>> cases[] = {
        {"ff8000", Colour{255, 128, 0, 255}},
        {"#FF8000", Colour{255, 128, 0, 255}},
        {"FF800040#", Colour{255, 128, 0, 64}},
        {"##000000", Colour::black},
        {"", std::nullopt},
        {"fff", std::nullopt},
        {"ff80zz", std::nullopt},
        {"ff#8000", std::nullopt},
        {"-12345", std::nullopt}};
    for (const auto& [text, colour] : cases) EXPECT_EQ(Colour::hex(text), colour) << text;
    EXPECT_EQ((Colour{255, 3, 100, 128}.premultiplied()), 0x80800232u)
        << "alpha, red, green, blue, each rounded";
    EXPECT_EQ((Colour{255, 3, 100, 128}.premultiplied(0.5)), 0x40400119u);
}
