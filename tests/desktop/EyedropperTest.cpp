#include "app/desktop/viewer/Eyedropper.h"
#include "app/desktop/viewer/FrameView.h"
#include "tests/desktop/OnWindow.h"

#include <QQmlContext>
#include <QQmlEngine>

using namespace murbo;

namespace {

/// A movie of one colour in the source viewer.
struct DroppedWindow : WindowOfProject {
    DroppedWindow() {
        editor().holdClip(editor().project().clips[1].id); // it is teal throughout
        editor().setFocus(Viewer::source);
        waitFor([this] { return view() && view()->isVisible() && !view()->last().empty(); });
        settle();
        QObject::connect(dropper(), &Eyedropper::taken, [this](QObject* who, const QString& colour) {
            taken += who->objectName().toStdString() + colour.toStdString();
        });
        QObject::connect(dropper(), &Eyedropper::letGo,
                         [this](const QObject* who) { back += who == &asker; });
        asker.setObjectName("key ");
    }
    FrameView* view() {
        for (auto* one : window().findChildren<FrameView*>())
            if (one->player() == &editor().source) return one;
        return nullptr;
    }
    Eyedropper* dropper() {
        return qobject_cast<Eyedropper*>(qmlContext(window().contentItem()->childItems().front())
                                             ->contextProperty("eyedropper")
                                             .value<QObject*>());
    }
    void ask() {
        taken.clear();
        dropper()->ask(&asker);
        settle();
    }

    QObject asker;
    std::string taken;
    int back = 0; ///< how often the asker got the keys back
};

using EyedropperTest = OnWindow<DroppedWindow>;

}

TEST_F(EyedropperTest, takesTheColourUnderThePointerForWhoAsked) {
    ASSERT_TRUE(shown->view() && shown->dropper());
    const auto middle = shown->view()->mapToScene(shown->view()->picture().center());
    shown->ask();
    shown->click(middle.x(), middle.y());
    ASSERT_EQ(shown->taken.size(), 10);
    const auto colour = QColor("#" + QString::fromStdString(shown->taken.substr(4)));
    EXPECT_LT(colour.red(), 12); // teal is 0, 128, 128
    EXPECT_NEAR(colour.green(), 128, 12);
    EXPECT_NEAR(colour.blue(), 128, 12);
    EXPECT_FALSE(shown->dropper()->active());

    shown->ask();
    const double time = shown->editor().source.time();
    shown->key(Qt::Key_Left);
    shown->key(Qt::Key_Return);
    EXPECT_EQ(shown->taken.substr(0, 4), "key ") << "by keys alone";
    EXPECT_EQ(shown->editor().source.time(), time);

    shown->ask();
    shown->key(Qt::Key_Escape);
    EXPECT_FALSE(shown->dropper()->active());
    EXPECT_EQ(shown->taken, "");
    EXPECT_EQ(shown->back, 3) << "also where nothing is taken";
    EXPECT_EQ(Eyedropper::colourAt(*shown->view(), {-5, 5}), "") << "beside the picture";
}
