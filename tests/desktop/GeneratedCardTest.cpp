#include "app/desktop/drawn/FootagePictures.h"
#include "app/desktop/drawn/GeneratedCard.h"
#include "app/desktop/drawn/Painted.h"

#include <QTest>
#include <array>

#include <gtest/gtest.h>

using namespace murbo;

namespace {

GeneratedCard titled(const std::string& title) {
    const Values values{{"title", title}, {"colour", "2A1650"}, {"letters", "FFD23F"}};
    return {Cut::generated("stock.generator.title", 1, values, 2), Video::Aspect::vertical, {}};
}

}

TEST(GeneratedCard, isThePictureOfItsMiddle) {
    const auto picture = titled("One heart.").draw(90);
    EXPECT_EQ(picture.width(), 90);
    EXPECT_EQ(picture.height(), 160);
    const auto* corner = picture.row(2) + 4 * 2;
    EXPECT_EQ((std::array{corner[2], corner[1], corner[0]}), (std::array<std::uint8_t, 3>{0x2A, 0x16, 0x50}));
    std::size_t letters = 0;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x) letters += picture.row(y)[4 * x + 2] > 0xD0;
    EXPECT_GT(letters, 20U);
}

TEST(GeneratedCard, isKnownByWhatItShows) {
    const auto number = [](const GeneratedCard& card) {
        return GeneratedCard::number(card.cut, card.aspect);
    };
    const auto card = titled("One");
    EXPECT_LT(number(card), 0);
    auto other = titled("One");
    EXPECT_EQ(number(other), number(card)) << "whichever cut it is";
    other.aspect = Video::Aspect::horizontal;
    EXPECT_NE(number(other), number(card));
    EXPECT_NE(number(titled("Two")), number(card));
    other = titled("One");
    other.cut.generator->version = 2;
    EXPECT_NE(number(other), number(card)) << "drawn anew after an update";
}

TEST(GeneratedCard, isDrawnAsideAndComesOnceForWhatItShows) {
    auto card = titled("One");
    const auto number = GeneratedCard::number(card.cut, card.aspect);
    FootagePictures pictures(
        [](const UUID&) { return nullptr; }, [](const UUID&) { return nullptr; },
        [&](const UUID& cut) { return cut == card.cut.id ? std::optional(card) : std::nullopt; });
    EXPECT_FALSE(pictures.still(UUID::make(), number)) << "a cut that is gone has none";
    EXPECT_FALSE(pictures.isBusy());
    EXPECT_FALSE(pictures.still(card.cut.id, number));
    ASSERT_TRUE(QTest::qWaitFor([&] { return pictures.still(card.cut.id, number).has_value(); }, 20000));
    const auto one = *pictures.still(card.cut.id, number);
    EXPECT_EQ(pictures.still(card.cut.id, number)->row(0), one.row(0));
    EXPECT_FALSE(pictures.isBusy());
    card.cut.generator = titled("Two").cut.generator;
    const auto other = GeneratedCard::number(card.cut, card.aspect);
    EXPECT_FALSE(pictures.still(card.cut.id, other)) << "another text";
    ASSERT_TRUE(QTest::qWaitFor([&] { return pictures.still(card.cut.id, other).has_value(); }, 20000));
    EXPECT_NE(Painted::image(*pictures.still(card.cut.id, other)), Painted::image(one));
}
