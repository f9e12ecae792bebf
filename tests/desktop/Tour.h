#pragma once

#include "app/desktop/viewer/HandlesView.h"
#include "app/editor/commands/CommandRun.h"
#include "core/model/ModelCodec.h"
#include "tests/desktop/DrawnText.h"
#include "tests/desktop/Looks.h"
#include "tests/desktop/Notified.h"
#include "tests/desktop/TourHands.h"
#include "tests/desktop/TourNames.h"
#include "tests/desktop/TourState.h"
#include "tests/desktop/WindowOfProject.h"

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
          state(window, std::move(settingsFile)),
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
        before = state.now();
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
        followAll();
        carryOut(names.identified(line));
        rest();
        stop(shown.editor().playback, "video");
        stop(shown.editor().source, "source");
        const auto now = state.now();
        for (const auto& change : TourText::json::diff(before, now))
            say(change["op"].get<std::string>() + " " + change["path"].get<std::string>() +
                (change.contains("value") ? " " + change["value"].dump() : ""));
        before = now;
        for (auto& [name, seen] : watched) {
            const auto lines = dump(name);
            for (const auto& change : TourText::changed(seen, lines)) say(name + " " + change);
            seen = lines;
        }
        sayUnsaid(line);
        if (auto words = std::exchange(Complaints::list(), ""); !words.empty()) {
            words.pop_back();
            say("complaint: " + words);
        }
    }

    /// What changed without a word to those who show it. What shows a sheet or a tab is there while that is
    /// open: it hears of what is done with it.
    void sayUnsaid(const std::string& line) {
        for (auto& words : notified.unsaid()) {
            const auto name = words.substr(0, words.find_first_of(". "));
            if (!atTimes.contains(name) || line.starts_with(name)) say("not announced: " + words);
        }
    }
    void followAll() {
        static const std::vector<std::string> always{
            "project",          "project.editor",  "project.player",    "project.sourcePlayer",
            "project.sidebar",  "project.browser", "project.exports",   "mediaArrivals",
            "inspection",       "inspectorPanel",  "inspectorPictures", "transcript",
            "transcript.offer", "heldFootage",     "splitters",         "viewerAids"};
        const auto follow = [this](const std::string& name) {
            notified.follow(name, evaluated(name).value<QObject*>());
        };
        std::ranges::for_each(always, follow);
        std::ranges::for_each(atTimes, follow);
        eachView(
            [this](const QString& name, QQuickItem* item) { notified.follow(name.toStdString(), item); });
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
        } else if (verb == "look" || verb == "compare") {
            settle();
            while (words >> name) look(name, verb == "look");
        } else if (verb == "watch") {
            watched.clear();
            while (words >> name) say(watched[name] = dump(name));
        } else if (hands.carryOut(verb, rest)) {
            context.setContextProperty("found", hands.found.data());
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

    /// Calls with each view of the system's own that is shown, and with its name.
    template <class Visit>
    void eachView(const Visit& visit, QQuickItem* in = nullptr) {
        for (auto* item : (in ? in : shown.window().contentItem())->childItems()) {
            if (!item->isVisible()) continue;
            const auto* type = item->metaObject();
            while (type && (!std::string(type->className()).starts_with("murbo::") ||
                            QString(type->className()).contains("_QML")))
                type = type->superClass();
            auto name = QString(type ? type->className() : "").mid(7);
            if (type) visit(name.replace(0, 1, name[0].toLower()), item);
            eachView(visit, item);
        }
    }

    QVariant evaluated(const std::string& line) {
        std::map<QString, int> counts; // of several the last has the name alone
        eachView([&](const QString& name, QQuickItem* item) {
            context.setContextProperty(name, item);
            context.setContextProperty(name + QString::number(++counts[name]), item);
        });
        QQmlExpression expression(&context, &shown.window(), QString::fromStdString(line));
        const auto value = expression.evaluate();
        if (expression.hasError() && !waiting)
            say("error: " + expression.error().description().toStdString());
        return value;
    }

    QQuickItem* itemOf(const std::string& name) {
        return qobject_cast<QQuickItem*>(evaluated(name).value<QObject*>());
    }

    /// An object's lines by its name; of a timeline also "blocks", of a drawn view "drawn NAME".
    TourText::Lines dump(const std::string& name) {
        if (name == "blocks") return DrawnText::of(shown.item<TimelineView>()->shown());
        if (name == "tree") return treeOf(shown.window());
        // What is drawn; as marks without its places, where they follow from the letters' widths.
        const bool marks = name.starts_with("marks:"), drawn = marks || name.starts_with("drawn:");
        const auto value = evaluated(drawn ? name.substr(6) : name);
        auto* object = value.value<QObject*>();
        if (!object) return TourText::linesOf(value);
        if (auto* view = drawn ? qobject_cast<DrawnView*>(object) : nullptr)
            return DrawnText::of(*view, marks);
        return TourText::of(*object);
    }

    /// Until nothing comes into the window any more.
    void settle() {
        QImage last;
        for (int same = 0, turn = 0; same < 4 && turn < 200; ++turn, QTest::qWait(100)) {
            shown.waitFor([this] { return !shown.opened->awaitsPictures(); });
            auto now = shown.window().grabWindow();
            same = now == last ? same + 1 : 0;
            last = std::move(now);
        }
    }
    void look(const std::string& name, bool whole) {
        auto* item = itemOf(name);
        if (!item) return say("no such item");
        const auto place = item->mapRectToScene(item->boundingRect()).toAlignedRect();
        say(looks.of(name, shown.window().grabWindow().copy(place), whole));
    }

    void rest() {
        for (int turn = 0; turn < 3; ++turn) QCoreApplication::processEvents();
        static const std::string settled =
            "library.emptyWords !== 'Reading…' && !footageSheet.reading && "
            "streamSheet.facts !== 'Reading…' && deliveryCheck.state !== 'checking…'";
        const auto* handles = shown.window().findChild<HandlesView*>();
        shown.waitFor([&] {
            return !shown.editor().isBusy() && !(handles && handles->isLooking()) &&
                   evaluated(settled).toBool();
        });
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

    WindowOfProject& shown;
    TourNames names;
    TourState state;
    QQmlContext context;
    QObject spot;
    std::map<std::string, TourText::Lines> watched;
    Notified notified;
    TourHands hands{shown, [this](const std::string& name) { return itemOf(name); },
                    [this](const std::string& line) { say(line); }};
    const std::set<std::string> atTimes{
        "captions",      "captionTimes",  "captionFonts", "closingQuestion",   "copySheet",
        "deliveryCheck", "exportSheet",   "folders",      "footageSheet",      "historySheet",
        "library",       "settingsSheet", "streamSheet",  "timelineAppearance"};
    Looks looks;
    TourText::json before;
    bool waiting = false;
    std::string text;
};

}
