#pragma once

#include "app/desktop/access/AccessTree.h"
#include "app/editor/commands/SessionState.h"
#include "core/model/ModelCodec.h"
#include "platform/base/Codec.h"
#include "tests/desktop/TourText.h"
#include "tests/desktop/WindowOfProject.h"

#include <QClipboard>
#include <QGuiApplication>

namespace murbo {

/// The project in a window, the session on it, the settings, what was copied and where the keys are.
class TourState {
public:
    TourState(WindowOfProject& window, std::filesystem::path file)
        : shown(window), settings(std::move(file)) {
        QGuiApplication::clipboard()->clear();
    }

    TourText::json now() {
        using TourText::json;
        const auto& editor = shown.editor();
        if (encoded.empty() || encodedFrom != editor.project()) encode(editor.project());
        auto whole = encoded;
        auto session = json::parse(SessionState::json(editor));
        session["undo"] = editor.history().undoName().value_or("");
        session["redo"] = editor.history().redoName().value_or("");
        session["unfinished"] = editor.unfinished().value_or("");
        session["sheet"] = shown.project().sheet().toStdString();
        session["menu"] = shown.project().property("menuOpen").toBool();
        auto* keys = shown.window().activeFocusItem();
        auto* access = keys ? QAccessible::queryAccessibleInterface(keys) : nullptr;
        session["keys"] = qobject_cast<TimelineView*>(keys) ? "Timeline"
                          : access                          ? access->text(QAccessible::Name).toStdString()
                                                            : "";
        session["copied"] = QGuiApplication::clipboard()->text().toStdString();
        whole["session"] = rounded(session);
        whole["settings"] = rounded(json::parse(contentsOf(settings), nullptr, false));
        return whole;
    }

private:
    void encode(const Project& project) {
        const auto json = [](const auto& record) {
            return rounded(TourText::json::parse(Codec::encode(record, JsonWriter::Layout::compact)));
        };
        encodedFrom = project;
        encoded = json(project);
        for (const auto& [source, transcript] : project.transcripts)
            encoded["transcripts"][source.text()] = json(transcript);
    }
    static TourText::json rounded(TourText::json value) {
        if (value.is_number_float()) return TourText::tidied(value);
        if (value.is_structured())
            for (auto& member : value) member = rounded(member);
        return value;
    }

    WindowOfProject& shown;
    std::filesystem::path settings;
    Project encodedFrom;
    TourText::json encoded;
};

/// All that a screen reader meets in a window.
inline TourText::Lines treeOf(QQuickWindow& window) {
    TourText::Lines lines;
    window.grabWindow(); // the rows of lists come with a frame
    for (const auto& node : AccessTree::of(window)) {
        auto line = std::string(static_cast<std::size_t>(node.depth), ' ') + node.role.toStdString() + " “" +
                    node.name.toStdString() + "”";
        for (const auto& more : {node.description, node.value})
            if (!more.isEmpty()) line += " “" + more.toStdString() + "”";
        for (const auto& [holds, words] : {std::pair{node.focusable, " focusable"},
                                           {node.focused, " focused"},
                                           {!node.enabled, " disabled"},
                                           {node.checked, " checked"},
                                           {node.selected, " selected"}})
            if (holds) line += words;
        lines.push_back(line);
    }
    return lines;
}

}
