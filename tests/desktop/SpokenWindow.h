#pragma once

#include "tests/desktop/OnWindow.h"

#include <QInputMethodEvent>

namespace murbo {

/// A window on a project in whose first movie something is said, with the first clip held and in a video.
struct SpokenWindow : WindowOfProject {
    SpokenWindow() {
        editor().apply([](Project& project) {
            auto& lines = project.transcripts[project.sources[0].id].lines;
            const auto line = [](double start, double end, const char* text) {
                return Line{.start = start, .end = end, .text = text};
            };
            lines =
                std::vector<Line>{line(0.2, 0.9, "okay we have one heart"), line(1, 1.8, "ไม่เป็นไร เดินช้า ๆ"),
                                  line(2, 2.9, "二行目の言葉です"), line(3, 3.8, "no no 🙂 the floor")};
        });
        putIn();
        editor().setInspecting(Inspecting::browser);
        settle();
    }

    void show(InspectorTab tab) {
        editor().setInspectorTab(tab);
        settle(100);
    }
    /// What an input method does while letters are composed.
    void composing(const QString& letters) {
        QInputMethodEvent event(letters, {});
        QCoreApplication::sendEvent(window().focusObject(), &event);
        settle(5);
    }
    /// All that it does: letters while they are composed, then what they become.
    void compose(const QString& before, const QString& after) {
        composing(before);
        QInputMethodEvent done;
        done.setCommitString(after);
        QCoreApplication::sendEvent(window().focusObject(), &done);
        settle(5);
    }
    std::string said(std::size_t line) {
        return editor().project().transcript(editor().project().sources[0].id).lines[line].text;
    }
};

}
