#include "app/desktop/inspector/InspectorPictures.h"
#include "tests/desktop/PickedShot.h"

using namespace murbo;

using InspectorPicturesTest = OnWindow<PickedShot>;

TEST_F(InspectorPicturesTest, areTheLayoutsWithTheFrameAtThePlayhead) {
    InspectorPictures pictures(shown->editor());
    pictures.setProperty("watched", true);
    ASSERT_TRUE(QTest::qWaitFor(
        [&] { return pictures.layoutCards().size() > 3 && !pictures.layoutCards()[0].picture.isNull(); },
        10000));
    const auto& cards = pictures.layoutCards();
    EXPECT_EQ(cards[0].id, "split");
    EXPECT_EQ(cards[0].picture.size(), QSize(95, 168)) << "9:16";
    EXPECT_NE(cards[0].picture, cards[1].picture);
    for (const auto& card : cards) EXPECT_FALSE(card.picture.isNull()) << card.id;

    const auto first = cards[0].picture;
    shown->editor().playback.seek(2);
    EXPECT_TRUE(QTest::qWaitFor([&] { return pictures.layoutCards()[0].picture != first; }, 10000))
        << "they follow the playhead";
}
