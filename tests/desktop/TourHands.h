#pragma once

#include "tests/desktop/TourText.h"
#include "tests/desktop/WindowOfProject.h"

#include <QInputMethodEvent>
#include <QKeySequence>
#include <QPointer>
#include <functional>
#include <set>
#include <sstream>

#include <fmt/format.h>

namespace murbo {

/// The mouse and the keys in the lines of a tour.
class TourHands {
public:
    using Say = std::function<void(const std::string&)>;
    using Find = std::function<QQuickItem*(const std::string&)>; ///< the item that an expression stands for

    TourHands(WindowOfProject& window, Find byExpression, Say saying)
        : shown(window), expressed(std::move(byExpression)), say(std::move(saying)) {}

    /// Whether the line was one of theirs.
    bool carryOut(const std::string& verb, const std::string& rest) {
        static const std::set<std::string> keys{"key", "hold", "let"},
            mice{"press", "move", "release", "tap", "double", "hover", "wheel"},
            names{"find", "click", "menu", "focus", "tab"}, words{"type", "fill", "composing", "compose"};
        if (keys.contains(verb)) key(verb, rest);
        if (mice.contains(verb)) mouse(verb, rest);
        if (names.contains(verb)) onNamed(verb, QString::fromStdString(rest));
        if (words.contains(verb)) write(verb, rest);
        return keys.contains(verb) || mice.contains(verb) || names.contains(verb) || words.contains(verb);
    }

    QPointer<QQuickItem> found; ///< what was named last

private:
    /// "key" taps, "hold" and "let" are one of it with a while between them.
    void key(const std::string& verb, const std::string& keys) {
        const auto pressed = QKeySequence(QString::fromStdString(keys))[0];
        auto& window = shown.window();
        if (verb != "let") QTest::keyPress(&window, pressed.key(), pressed.keyboardModifiers());
        shown.keyTimes.held = verb == "let" ? 400 : 50;
        if (verb != "hold") QTest::keyRelease(&window, pressed.key(), pressed.keyboardModifiers());
    }

    /// On the item that is shown with a name or a text: "find" it, "click" it, open its "menu", "focus" it,
    /// or "tab" until it has the keys.
    void onNamed(const std::string& verb, const QString& name) {
        if (verb == "tab") {
            if (!shown.tabTo(name)) say("not reached");
            return;
        }
        found = shown.named(name);
        if (!found) return say("no such item");
        if (verb == "click") shown.clickOn(found);
        if (verb == "menu") shown.clickOn(found, Qt::RightButton);
        if (verb == "focus") found->forceActiveFocus(Qt::TabFocusReason);
    }

    /// "type" by keys, "fill" over all that stands there, or as an input method does: "composing" what may
    /// still become another, then "compose" what it has become.
    void write(const std::string& verb, const std::string& words) {
        if (verb == "fill") return shown.typeOver(words.c_str());
        if (verb == "type") {
            for (const char letter : words) QTest::keyClick(&shown.window(), letter);
            return;
        }
        const auto letters = QString::fromStdString(words);
        QInputMethodEvent event(verb == "composing" ? letters : QString(), {});
        if (verb == "compose") event.setCommitString(letters);
        QCoreApplication::sendEvent(shown.window().focusObject(), &event);
    }

    /// "press ITEM x y" or "tap", with Shift, Ctrl, Alt, Right or Middle after it; "wheel ITEM x y across
    /// down".
    void mouse(const std::string& verb, const std::string& rest) {
        std::istringstream words(rest);
        std::string name, more;
        double x = 0, y = 0;
        QPoint turned;
        words >> name >> x >> y;
        if (verb == "wheel") words >> turned.rx() >> turned.ry();
        auto button = Qt::LeftButton;
        Qt::KeyboardModifiers held;
        while (words >> more) {
            if (more == "Shift") held |= Qt::ShiftModifier;
            if (more == "Ctrl") held |= Qt::ControlModifier;
            if (more == "Alt") held |= Qt::AltModifier;
            if (more == "Right") button = Qt::RightButton;
            if (more == "Middle") button = Qt::MiddleButton;
        }
        auto* item = expressed(name);
        if (!item) return say("no such item");
        auto& window = shown.window();
        const auto point = item->mapToScene({x, y}).toPoint();
        if (verb == "press") QTest::mousePress(&window, button, held, point);
        if (verb == "release") QTest::mouseRelease(&window, button, held, point);
        if (verb == "tap") QTest::mouseClick(&window, button, held, point);
        if (verb == "double") QTest::mouseDClick(&window, button, held, point);
        if (verb == "hover") {
            QTest::mouseMove(&window, point);
            const auto said = [&](const char* property) {
                return TourText::of(item->property(property)).dump();
            };
            say(fmt::format("cursor {} {} {} {}", static_cast<int>(item->cursor().shape()), said("hint"),
                            said("hintAt"), said("bladeX")));
        }
        QWheelEvent turn(point, point, {}, turned, Qt::NoButton, held, Qt::NoScrollPhase, false);
        if (verb == "wheel") QCoreApplication::sendEvent(&window, &turn);
        if (verb != "move") return;
        QMouseEvent moved(QEvent::MouseMove, QPointF(point), QPointF(point), Qt::NoButton, Qt::LeftButton,
                          held);
        QCoreApplication::sendEvent(&window, &moved);
    }

    WindowOfProject& shown;
    Find expressed;
    Say say;
};

}
