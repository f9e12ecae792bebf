#include "app/desktop/access/Announcer.h"
#include "tests/desktop/OnWindow.h"

#include <QAccessible>
#include <QQmlContext>
#include <QQmlEngine>
#include <utility>

using namespace murbo;

using AnnouncerTest = OnWindow<WindowOfProject>;

/// What is shown anew a screen reader reads by itself; what changes its words must be said, and as an alert:
/// of other roles nothing is read out.
TEST_F(AnnouncerTest, aMessageInTheOthersPlaceIsSaidAsAnAlert) {
    auto* announcer = qvariant_cast<Announcer*>(
        QQmlEngine::contextForObject(&shown->window())->contextProperty("announcer"));
    ASSERT_TRUE(announcer);
    QStringList said;
    QObject::connect(announcer, &Announcer::said, &shown->window(), [&](QObject* item) {
        auto* access = QAccessible::queryAccessibleInterface(item);
        ASSERT_TRUE(access);
        EXPECT_EQ(access->role(), QAccessible::AlertMessage);
        EXPECT_FALSE(access->state().invisible);
        said.append(access->text(QAccessible::Name));
    });
    const auto words = [&] { return std::exchange(said, {}).join(", ").toStdString(); };
    emit shown->project().toast("Added 2 clips", "undo");
    EXPECT_EQ(words(), "") << "it is shown";
    emit shown->project().toast("Removed a cut", "undo");
    EXPECT_EQ(words(), "Removed a cut");
    emit shown->project().toast("Removed a cut", "undo");
    EXPECT_EQ(words(), "Removed a cut");
}
