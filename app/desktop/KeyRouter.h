#pragma once

#include "app/editor/EditingTool.h"
#include "app/editor/Keys.h"

#include <QObject>
#include <functional>
#include <optional>

class QKeyEvent;
class QQuickWindow;

namespace murbo {

class OpenProject;

/// Takes a window's keys before its items: combinations go to the actions, bare keys to the editing commands,
/// but never while somebody types or a sheet is open.
class KeyRouter : public QObject {
    Q_OBJECT

public:
    KeyRouter(QQuickWindow& window, OpenProject& project);

    /// The name by which `Keys` knows a key press: the typed character, else what a US keyboard has on that
    /// key; empty for a press that no command can have.
    static QString typed(const QKeyEvent& event);
    /// What a US keyboard has on a key, by the system's scan code; empty where it has no letter or digit.
    static QString onUsKeyboard(quint32 scanCode);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool press(const QKeyEvent& event);
    bool pressBare(const QKeyEvent& event);
    bool walkBlocks(const QKeyEvent& event);
    bool typing() const;
    bool onControl(int key) const;
    bool takesEscape() const;

    QQuickWindow& window;
    OpenProject& project;
    void takeTool(Command command, quint64 when);
    void letToolGo(Command command, quint64 when);

    std::optional<Command> toolHeld; ///< a tool's key that is down
    EditingTool toolBefore = EditingTool::select;
    quint64 toolSince = 0; ///< ms, by the keyboard's own times: a busy window makes no hold of a tap
    bool stopHeld = false; ///< K, with which J and L go a frame at a time
};

}
