#include "app/desktop/Pictures.h"
#include "platform/base/Problem.h"
#include "tests/desktop/OnWindow.h"

#include <QImage>

using namespace murbo;

using PicturesTest = OnWindow<WindowOfProject>;

TEST(Pictures, readWhatTheWordsAskFor) {
    EXPECT_FALSE(Pictures::asked(Arguments({"murbo", "--open", "p.mbproj"})));
    const auto order = Pictures::asked(
        Arguments({"murbo", "--pictures", "out", "--show", "captions", "--size", "1920,1080"}));
    ASSERT_TRUE(order);
    EXPECT_EQ(order->view, "captions");
    EXPECT_EQ(order->size, QSize(1920, 1080));
    for (const auto* size : {"1", "a,b", "0,0", "99999,10", "10,10,10"})
        EXPECT_THROW(Pictures::asked(Arguments({"murbo", "--pictures", "out", "--size", size})), Problem)
            << size;
}

TEST_F(PicturesTest, areOfTheWholeWindow) {
    shown->desktop.reset();
    Pictures::take({shown->folder / "out", "source", {1024, 640}}, {shown->package()});
    const QImage picture(QString::fromStdString(shown->folder / "out" / "source-1024x640.png"));
    ASSERT_EQ(picture.size(), QSize(1024, 640));
    EXPECT_EQ(picture.pixelColor(1000, 5), QColor("#17181B")) << "the top bar";
}
