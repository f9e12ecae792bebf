#pragma once

#include "app/desktop/Desktop.h"
#include "app/desktop/ProjectWindow.h"
#include "app/desktop/timeline/TimelineView.h"
#include "app/editor/commands/TimelinePicks.h"
#include "core/intake/Intake.h"
#include "core/intake/Sources.h"
#include "core/model/package/ProjectPackage.h"
#include "tests/Environment.h"
#include "tests/MadeMedia.h"
#include "tests/TemporaryFolder.h"
#include "tests/desktop/KeyTimes.h"

#include <QAccessible>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>
#include <functional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace murbo {

/// All that Qt and the views complain of while this lives.
class Complaints {
public:
    Complaints() { before = qInstallMessageHandler(&Complaints::take); }
    ~Complaints() { qInstallMessageHandler(before); }

    static std::string& list() {
        static std::string words;
        return words;
    }

private:
    static void take(QtMsgType type, const QMessageLogContext&, const QString& words) {
        // What a platform without a screen says of itself is no fault of a view.
        if (type != QtDebugMsg && !words.contains("plugin does not support"))
            list() += words.toStdString() + "\n";
    }
    QtMessageHandler before;
};

/// The window of a project with two movies, 4 s and 3 s long, each a clip; with settings of its own.
class WindowOfProject {
public:
    WindowOfProject() {
        Complaints::list().clear();
        Project made;
        Sources::add(
            made,
            Intake::lengths({bars(), made::file("plain.mp4",
                                                "-f lavfi -i color=c=teal:size=320x180:rate=30:duration=3 "
                                                "-pix_fmt yuv420p")}),
            "Footage", Source::Kind::file);
        ProjectPackage::write(made, package(), nullptr);
        desktop = std::make_unique<Desktop>(SoundPlayer::MakeOutput());
        opened = desktop->open(package());
        if (!opened) return;
        window().resize(1280, 800);
        keyTimes.follow(window());
        QObject::connect(&project(), &OpenProject::toast, [this](const QString& words) { toasts << words; });
        settle();
    }
    /// A movie of a test picture with a tone, 4 s long.
    static std::filesystem::path bars() {
        return made::file("bars.mp4",
                          "-f lavfi -i testsrc=size=320x180:rate=30:duration=4 -f lavfi -i "
                          "sine=frequency=440:duration=4 -pix_fmt yuv420p -c:a aac -shortest");
    }
    /// A path as the views have it.
    static QString text(const std::filesystem::path& path) { return QString::fromStdString(path.string()); }

    std::filesystem::path package() const { return folder / "p.mbproj"; }
    OpenProject& project() { return opened->project(); }
    Editor& editor() { return project().editor(); }
    QQuickWindow& window() { return opened->window(); }
    Project onDisk() const { return ProjectPackage::read(package()); }
    /// What the last step is called, and how many there are.
    std::string step() { return editor().history().undoName().value_or(""); }
    std::size_t steps() { return editor().history().past().size(); }

    static bool waitFor(const std::function<bool()>& holds, int milliseconds = 10000) {
        return QTest::qWaitFor(holds, milliseconds);
    }
    void settle(int milliseconds = 50) {
        QTest::qWait(milliseconds);
        waitFor([this] { return !opened || !editor().isBusy(); });
    }
    /// Puts a clip at the end of the video by its key, which begins one where there is none.
    void putIn(std::size_t clip = 0) {
        editor().holdClip(editor().project().clips[clip].id);
        settle();
        key(Qt::Key_E);
    }
    void key(Qt::Key key, Qt::KeyboardModifiers held = Qt::NoModifier) {
        QTest::keyClick(&window(), key, held);
        settle(10);
    }
    void type(const char* letters) {
        for (; *letters; ++letters) QTest::keyClick(&window(), *letters);
        settle(10);
    }
    /// Types over all that stands in the field that has the keys, and presses Enter.
    void typeOver(const char* words) {
        key(Qt::Key_A, Qt::ControlModifier);
        type(words);
        key(Qt::Key_Return);
    }
    /// Goes on by Tab until what has the keys is called that, also to a screen reader.
    bool tabTo(const QString& name) {
        for (int at = 0; at < 120; ++at, key(Qt::Key_Tab))
            if (auto* item = window().activeFocusItem()) {
                auto* access = QAccessible::queryAccessibleInterface(item);
                if (item->property("name") == name || item->property("text") == name ||
                    (access && access->text(QAccessible::Name) == name))
                    return true;
            }
        return false;
    }
    void click(double x, double y, Qt::KeyboardModifiers held = Qt::NoModifier) {
        QTest::mouseClick(&window(), Qt::LeftButton, held, QPointF(x, y).toPoint());
        settle(10);
    }
    void clickOn(const QQuickItem* item, Qt::MouseButton button = Qt::LeftButton) {
        ASSERT_TRUE(item);
        const auto middle = item->mapToScene({item->width() / 2, item->height() / 2}).toPoint();
        QTest::mouseClick(&window(), button, {}, middle);
        settle(30);
    }
    /// Presses, goes there in that number of moves, and lets go; `above` is done before it lets go.
    void carry(QPoint from, QPoint to, int moves, const std::function<void()>& above = {}) {
        QTest::mousePress(&window(), Qt::LeftButton, {}, from);
        for (int move = 1; move <= moves; ++move) {
            QTest::mouseMove(&window(), from + (to - from) * move / moves);
            if (moves > 1) QTest::qWait(5);
        }
        if (above) above();
        QTest::mouseRelease(&window(), Qt::LeftButton, {}, to);
        settle();
    }
    /// The item that is shown and has that name or text; null where there is none.
    QQuickItem* named(const QString& name) { return named(window().contentItem(), name); }
    static QQuickItem* named(QQuickItem* in, const QString& name) {
        if (in->property("name").toString() == name || in->property("text").toString() == name) return in;
        for (auto* child : in->childItems())
            if (child->isVisible())
                if (auto* found = named(child, name)) return found;
        return nullptr;
    }
    /// The item within one that is shown, of that type of view and, where one is given, of that name.
    static QQuickItem* ofType(QQuickItem* in, const QString& type, const QString& name = {}) {
        if (QString(in->metaObject()->className()).startsWith(type) &&
            (name.isEmpty() || in->property("name") == name || in->property("text") == name))
            return in;
        for (auto* child : in->childItems())
            if (child->isVisible())
                if (auto* found = ofType(child, type, name)) return found;
        return nullptr;
    }
    /// The item of the window's that is of a type, as "murbo::TimelineView"; null where there is none.
    template <class Item>
    Item* item() {
        return window().findChild<Item*>();
    }
    /// A point of the row of cuts, that many points below its top.
    QPoint onTimeline(double time, double down = 30) {
        auto* view = item<TimelineView>();
        const double top = view->shown().track(TimelineRow::picture)->top;
        return view->mapToScene({view->shownSpan().x(time), top + down}).toPoint();
    }
    std::size_t cuts() { return editor().video() ? editor().video()->cuts.size() : 0; }

    Complaints complaints;
    QStringList toasts; ///< what has been said in short messages
    TemporaryFolder folder;
    Environment config{"XDG_CONFIG_HOME", folder.path / "config"};
    Environment home{"HOME", folder.path / "home"};
    KeyTimes keyTimes;
    std::unique_ptr<Desktop> desktop;
    ProjectWindow* opened = nullptr;
};

}
