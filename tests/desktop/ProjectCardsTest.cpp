#include "app/desktop/documents/ProjectCards.h"
#include "app/editor/commands/VideoCommands.h"
#include "tests/desktop/OnWindow.h"

using namespace murbo;

using ProjectCardsTest = OnWindow<WindowOfProject>;

TEST_F(ProjectCardsTest, showTheFirstFrameOfTheLastVideo) {
    const auto package = WindowOfProject::text(shown->package());
    const auto empty = ProjectCards::address(package);
    ASSERT_TRUE(empty.startsWith("image://project/"));
    ProjectCards cards;
    const auto id = [](const QString& address) { return address.mid(QString("image://project/").size()); };
    EXPECT_EQ(cards.requestImage(id(empty), nullptr, {}).width(), 1) << "no video yet";

    VideoCommands::create(shown->editor(), Video::Aspect::horizontal, "First");
    shown->putIn(0);
    VideoCommands::create(shown->editor(), Video::Aspect::vertical, "Last");
    shown->putIn(1); // all teal
    VideoCommands::create(shown->editor(), Video::Aspect::square, "Without cuts");
    EXPECT_NE(ProjectCards::address(package), empty) << "another picture is another address";
    const auto picture = cards.requestImage(id(ProjectCards::address(package)), nullptr, {144, 144});
    ASSERT_EQ(std::max(picture.width(), picture.height()), 144);
    EXPECT_LT(picture.width(), picture.height());
    const auto colour = picture.pixelColor(picture.width() / 2, picture.height() / 2);
    EXPECT_LT(colour.red(), 30);
    EXPECT_NEAR(colour.green(), 128, 12);

    EXPECT_EQ(ProjectCards::address("/no/such.mbproj"), "");
    for (const auto* bad : {"", "%%%", "L25vL3N1Y2g"})
        EXPECT_EQ(cards.requestImage(bad, nullptr, {}).width(), 1) << bad;
}
