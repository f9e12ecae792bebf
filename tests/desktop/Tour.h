#pragma once

#include "app/desktop/access/AccessTree.h"
#include "app/editor/commands/CommandRun.h"
#include "app/editor/commands/SessionState.h"
#include "core/model/ModelCodec.h"
#include "platform/base/Codec.h"
#include "platform/store/SettingsStore.h"
#include "tests/desktop/DrawnText.h"
#include "tests/desktop/TourNames.h"
#include "tests/desktop/WindowOfProject.h"

#include <QKeySequence>
#include <QQmlContext>
#include <QQmlExpression>
#include <QSignalSpy>
#include <algorithm>
#include <sstream>

namespace murbo {

/// Carries out lines in a window, one after the other, and writes beneath each all that came of it. A line is
/// a verb of `carryOut` below, else JavaScript as the views have it.
class Tour {
public:
    Tour(WindowOfProject& window, std::filesystem::path settingsFile)
        : shown(window),
          names(window.folder.path),
          settings(std::move(settingsFile)),
          context(qmlContext(&window.window())) {
        QObject::connect(&shown.project(), &OpenProject::toast, &spot,
                         [this](const QString& words, const QString& button) {
                             say("says “" + words.toStdString() + "”" +
                                 (button.isEmpty() ? "" : " with " + button.toStdString()));
                         });
        QObject::connect(&shown.editor(), &Editor::stepMade, &spot,
                         [this](const QString& name, bool byTimer) {
                             say("step “" + name.toStdString() + "”" + (byTimer ? " by itself" : ""));
                         });
    }

    /// The lines that begin with "> ", each with what came of it; comments stay.
    std::string of(const std::string& script) {
        rest();
        before = state();
        std::istringstream stream(script);
        for (std::string line; std::getline(stream, line);) {
            if (line.starts_with("#") || line.empty()) text += line + "\n";
            if (line.starts_with("> ")) step(line.substr(2));
        }
        return names.readable(text);
    }

    /// A project of a file, in which "@name" stands for an id.
    Project project(const std::filesystem::path& file) {
        const auto whole = TourText::json::parse(names.identified(contentsOf(file)));
        auto made = Codec::decode<Project>(whole.dump());
        for (const auto& [source, transcript] : whole.at("transcripts").items())
            made.transcripts[*UUID::parse(source)] = Codec::decode<Transcript>(transcript.dump());
        return made;
    }

private:
    void say(std::string line) {
        std::ranges::replace(line, '\n', '|'); // each in a line of its own
        text += "  " + line + "\n";
    }
    void say(const TourText::Lines& lines) {
        for (const auto& line : lines) say(line);
    }

    void step(const std::string& line) {
        text += "> " + line + "\n";
        carryOut(names.identified(line));
        rest();
        stop(shown.editor().playback, "video");
        stop(shown.editor().source, "source");
        const auto now = state();
        for (const auto& change : TourText::json::diff(before, now))
            say(change["op"].get<std::string>() + " " + change["path"].get<std::string>() +
                (change.contains("value") ? " " + change["value"].dump() : ""));
        before = now;
        for (auto& [name, seen] : watched) {
            const auto lines = dump(name);
            for (const auto& change : TourText::changed(seen, lines)) say(name + " " + change);
            seen = lines;
        }
        if (auto words = std::exchange(Complaints::list(), ""); !words.empty()) {
            words.pop_back();
            say("complaint: " + words);
        }
    }

    void carryOut(const std::string& line) {
        std::istringstream words(line);
        std::string verb, name;
        words >> verb;
        const auto rest = line.substr(std::min(verb.size() + 1, line.size()));
        if (verb == "run") {
            if (!CommandRun::run(shown.editor(), rest)) say("not done");
        } else if (verb == "show") {
            say(dump(rest));
        } else if (verb == "watch") {
            watched.clear();
            while (words >> name) say(watched[name] = dump(name));
        } else if (verb == "key") {
            key(rest);
        } else if (verb == "type") {
            for (const char letter : rest) QTest::keyClick(&shown.window(), letter);
        } else if (verb == "press" || verb == "move" || verb == "release" || verb == "double" ||
                   verb == "hover") {
            mouse(verb, words);
        } else if (verb == "under") {
            double y = 0;
            while (words >> y) say(DrawnText::under(shown.editor(), *shown.item<TimelineView>(), y));
        } else if (verb == "wait") {
            waiting = true;
            if (!shown.waitFor([&] { return evaluated(rest).toBool(); })) say("waited in vain");
            waiting = false;
        } else if (verb == "pause") {
            QTest::qWait(std::stoi(rest)); // what slides has come to rest
        } else if (verb == "file") {
            words >> name;
            shown.folder.file(name, rest.substr(name.size() + 1));
        } else {
            const auto result = TourText::of(evaluated(line));
            if (!result.is_null()) say("= " + result.dump());
        }
    }

    QVariant evaluated(const std::string& line) {
        for (auto* item : shown.window().findChildren<QQuickItem*>()) {
            if (!item->isVisible()) continue;
            const auto* type = item->metaObject();
            while (type && (!std::string(type->className()).starts_with("murbo::") ||
                            QString(type->className()).contains("_QML")))
                type = type->superClass();
            if (!type) continue;
            auto name = QString(type->className()).mid(7);
            name[0] = name[0].toLower();
            context.setContextProperty(name, item);
        }
        QQmlExpression expression(&context, &shown.window(), QString::fromStdString(line));
        const auto value = expression.evaluate();
        if (expression.hasError() && !waiting)
            say("error: " + expression.error().description().toStdString());
        return value;
    }

    /// An object's lines by its name; of a timeline also "blocks", of a drawn view "drawn NAME".
    TourText::Lines dump(const std::string& name) {
        if (name == "blocks") return DrawnText::of(shown.item<TimelineView>()->shown());
        if (name == "tree") return tree();
        // What is drawn; as marks without its places, where they follow from the letters' widths.
        const bool marks = name.starts_with("marks:"), drawn = marks || name.starts_with("drawn:");
        const auto value = evaluated(drawn ? name.substr(6) : name);
        auto* object = value.value<QObject*>();
        if (!object) return TourText::linesOf(value);
        if (auto* view = drawn ? qobject_cast<DrawnView*>(object) : nullptr)
            return DrawnText::of(*view, marks);
        return TourText::of(*object);
    }

    TourText::Lines tree() {
        TourText::Lines lines;
        shown.window().grabWindow(); // the rows of lists come with a frame
        for (const auto& node : AccessTree::of(shown.window())) {
            auto line = std::string(static_cast<std::size_t>(node.depth), ' ') + node.role.toStdString() +
                        " “" + node.name.toStdString() + "”";
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

    void key(const std::string& keys) {
        const auto pressed = QKeySequence(QString::fromStdString(keys))[0];
        QTest::keyClick(&shown.window(), pressed.key(), pressed.keyboardModifiers());
    }

    /// "press ITEM x y", with Shift, Ctrl, Alt, Right or Middle after it.
    void mouse(const std::string& verb, std::istringstream& words) {
        std::string name, more;
        double x = 0, y = 0;
        words >> name >> x >> y;
        auto button = Qt::LeftButton;
        Qt::KeyboardModifiers held;
        while (words >> more) {
            if (more == "Shift") held |= Qt::ShiftModifier;
            if (more == "Ctrl") held |= Qt::ControlModifier;
            if (more == "Alt") held |= Qt::AltModifier;
            if (more == "Right") button = Qt::RightButton;
            if (more == "Middle") button = Qt::MiddleButton;
        }
        auto* item = qobject_cast<QQuickItem*>(evaluated(name).value<QObject*>());
        if (!item) return say("no such item");
        auto& window = shown.window();
        const auto point = item->mapToScene({x, y}).toPoint();
        if (verb == "press") QTest::mousePress(&window, button, held, point);
        if (verb == "release") QTest::mouseRelease(&window, button, held, point);
        if (verb == "double") QTest::mouseDClick(&window, button, held, point);
        if (verb == "hover") {
            QTest::mouseMove(&window, point);
            const auto said = [&](const char* property) {
                return TourText::of(item->property(property)).dump();
            };
            say(fmt::format("cursor {} {} {} {}", static_cast<int>(item->cursor().shape()), said("hint"),
                            said("hintAt"), said("bladeX")));
        }
        if (verb != "move") return;
        QMouseEvent moved(QEvent::MouseMove, QPointF(point), QPointF(point), Qt::NoButton, Qt::LeftButton,
                          held);
        QCoreApplication::sendEvent(&window, &moved);
    }

    void rest() {
        for (int turn = 0; turn < 3; ++turn) QCoreApplication::processEvents();
        static const std::string settled =
            "library.emptyWords !== 'Reading…' && !footageSheet.reading && streamSheet.facts !== 'Reading…' "
            "&& "
            "deliveryCheck.state !== 'checking…'";
        shown.waitFor([this] { return !shown.editor().isBusy() && evaluated(settled).toBool(); });
        QCoreApplication::processEvents();
    }

    /// What plays goes on by the clock.
    void stop(Playback& player, const std::string& name) {
        if (player.rate() == 0) return;
        say("the " + name + " plays at " + fmt::format("{}", player.rate()));
        player.pause();
        player.seek(player.spanStart());
        rest();
    }

    /// The project, the session on it, the settings and where the keys are.
    TourText::json state() {
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
        whole["session"] = rounded(session);
        whole["settings"] = rounded(json::parse(contentsOf(settings), nullptr, false));
        return whole;
    }
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
    TourNames names;
    std::filesystem::path settings;
    QQmlContext context;
    QObject spot;
    std::map<std::string, TourText::Lines> watched;
    Project encodedFrom;
    TourText::json encoded;
    TourText::json before;
    bool waiting = false;
    std::string text;
};

}
