#include "app/desktop/Pictures.h"
#include "platform/base/Problem.h"
#include "tests/desktop/OnWindow.h"
#include "tests/desktop/Tour.h"

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

TEST_F(PicturesTest, showWhatTheirNameSays) {
    const auto project = Tour(*shown, shown->folder / "settings.json")
                             .project(std::filesystem::path(MURBO_TESTS) / "desktop/tours/project.json");
    shown->editor().apply([&](Project& now) { now = project; });
    shown->settle();
    shown->desktop.reset();
    std::vector<QImage> all;
    for (const auto* view : {"source", "picture", "generated", "shot", "overlay", "sound", "song", "several",
                             "caption", "captions", "transcript", "export"}) {
        Pictures::take({shown->folder / "out", view, {1024, 640}}, {shown->package()});
        const QImage picture(QString("%1/out/%2-1024x640.png")
                                 .arg(QString::fromStdString(shown->folder.path), QString::fromUtf8(view)));
        EXPECT_FALSE(picture.isNull()) << view;
        EXPECT_EQ(std::ranges::count(all, picture), 0) << view << " shows what another one does";
        all.push_back(picture);
    }
}
