#include "app/desktop/ActionSearch.h"
#include "app/desktop/Actions.h"
#include "app/desktop/OpenProject.h"
#include "app/desktop/captions/CaptionEdits.h"
#include "app/desktop/libraries/LibraryRows.h"
#include "app/desktop/services/FolderView.h"
#include "app/editor/commands/CommandRun.h"
#include "app/editor/commands/CutCommands.h"
#include "app/editor/commands/FootageCommands.h"
#include "app/editor/commands/IntakeCommands.h"
#include "app/editor/commands/KeyCommands.h"
#include "app/editor/commands/TimelinePicks.h"
#include "app/editor/commands/VideoCommands.h"
#include "core/model/VideoTime.h"
#include "platform/base/RawText.h"
#include "platform/store/SettingsStore.h"

// What the views of an open project ask for.

namespace murbo {
namespace {

QVariantMap shown(const Action& action, const OpenProject& project) {
    return {{"id", QString::fromStdString(action.id)},
            {"title", QString::fromStdString(Actions::title(action))},
            {"keys", QString::fromStdString(Actions::keys(action))},
            {"menu", QString::fromStdString(action.menu)},
            {"enabled", project.possible(action)}};
}

/// The source that is in the source viewer; or null.
const Source* lookedThrough(const Editor& editor) {
    const auto* clip = editor.held();
    const auto source = clip ? std::optional(clip->source) : editor.heldSource();
    return source ? editor.project().source(*source) : nullptr;
}

/// The cuts that are picked.
std::vector<UUID> pickedCuts(const Editor& editor) {
    std::vector<UUID> cuts;
    for (const auto& pick : TimelinePicks::all(editor))
        if (pick.kind == Pick::Kind::cut) cuts.push_back(pick.id);
    return cuts;
}

/// The tags of the clips that commands act on, as one says them: "C14, C15".
std::string tagsActedOn(const Editor& editor) {
    std::string tags;
    for (const auto& id : FootageCommands::clipsActedOn(editor))
        if (const auto* clip = editor.clip(id)) tags += (tags.empty() ? "" : ", ") + clip->tag();
    return tags;
}

}

bool OpenProject::escape() {
    if (menuOpen) return false;
    if (!openSheet.isEmpty()) {
        setSheet("");
        return true;
    }
    emit verb("escape");
    return true;
}

bool OpenProject::perform(const QString& id) {
    const auto* action = Actions::find(id.toStdString());
    emit aboutToAct();
    if (!action || !possible(*action)) return false;
    if (!action->line.empty()) return CommandRun::run(editor(), action->line);
    if (!action->command) return performVerb(*action);
    KeyCommands::perform(editor(), *action->command);
    return true;
}

bool OpenProject::performVerb(const Action& action) {
    auto& session = editor();
    const auto id = QString::fromStdString(action.id);
    if (id.startsWith("sheet."))
        setSheet(id.mid(6));
    else if (id == "framing") {
        session.setFraming(!session.framing());
        if (session.framing()) session.setFocus(Viewer::source);
    } else if (id == "palette" || id == "renameVideo")
        setSheet(id);
    else if (id.startsWith("go.")) {
        session.setSidebar({*fromRawText<Collection>(action.id.substr(3)), {}});
        emit verb("page");
    } else if (id == "trimStart" || id == "trimEnd")
        trimToPlayhead(id == "trimStart");
    else if (id == "takeOutQuiet")
        CutCommands::takeOutQuiet(session, *CutCommands::pickedCut(session));
    else if (id == "muteCuts")
        CutCommands::toggleMuteCuts(session, pickedCuts(session));
    else if (id == "caption.break") {
        emit verb("tab.captions"); // its words stand there
        emit verb("caption.show");
    } else if (id.startsWith("caption.") && id != "caption.edit")
        CaptionEdits::perform(session, action.id.substr(8));
    else if (id == "hold")
        browserModel.holdAsked();
    else if (id == "copyTag")
        FootageCommands::copyID(session, tagsActedOn(session));
    else if (id == "reject")
        FootageCommands::rate(session, FootageCommands::clipsActedOn(session), -1);
    else if (id == "duplicateVideo")
        VideoCommands::duplicate(session, *session.openVideo());
    else if (id == "deleteVideo")
        VideoCommands::remove(session, *session.openVideo());
    else if (id == "showInFolder")
        FolderView::show(QString::fromStdString(lookedThrough(session)->path));
    else
        emit verb(id);
    return true;
}

bool OpenProject::possible(const Action& action) const {
    const auto& session = editor();
    const auto& id = action.id;
    if (!action.line.empty()) return CommandRun::possible(session, action.line);
    if (id == "takeOutQuiet") return CutCommands::pickedCut(session).has_value();
    if (id == "framing") return session.source.source().has_value();
    if (id == "sheet.findMissing") return !session.missing().empty();
    if (id == "showInFolder") return lookedThrough(session) != nullptr;
    if (id.starts_with("caption.")) return CaptionEdits::possible(session, id.substr(8));
    if (id.starts_with("library.")) return LibraryRows::isLibrary(session.sidebar().collection);
    if (id == "transcribe") return session.held() || session.heldSource();
    if (id == "transcript.note") return session.range() && session.heldSource();
    if (id == "muteCuts") return !pickedCuts(session).empty();
    if (id == "hold") return browserModel.rowCount() > 0;
    if (id == "sheet.renameClip") return browserModel.askedClip().has_value();
    if (id == "reject" || id == "copyTag") return !FootageCommands::clipsActedOn(session).empty();
    if (id == "goToPick") return session.picked().has_value();
    const bool ofVideo = id.starts_with("walk.") || id == "sheet.export" || id == "trimStart" ||
                         id == "trimEnd" || id == "zoomFit";
    if (ofVideo) return session.video() && !session.video()->cuts.empty();
    if (id == "renameVideo" || id == "duplicateVideo" || id == "deleteVideo")
        return session.video() != nullptr;
    return true;
}

QStringList OpenProject::menuNames() const {
    QStringList names;
    for (const auto& name : Actions::menus()) names.append(QString::fromStdString(name));
    return names;
}

QVariantList OpenProject::menu(const QString& name) const {
    QVariantList lines;
    for (const auto& action : Actions::all())
        if (action.menu == name.toStdString()) lines.append(shown(action, *this));
    return lines;
}

QVariantList OpenProject::contextMenu(const QString& kind) const {
    static const std::map<QString, std::vector<const char*>> menus{
        {"block", {"split", "takeOutQuiet", "muteCuts", "copyPicks", "key.remove"}},
        {"caption",
         {"caption.edit", "caption.break", "caption.join", "caption.big", "caption.hide",
          "caption.resetTiming", "tab.captions", "copyPicks"}},
        {"timeline", {"split", "zoomFit", "clear"}},
        {"clip",
         {"hold", "key.addToEnd", "key.insert", "newVideoFromSelection", "key.favourite", "reject",
          "sheet.renameClip", "transcribe", "copyTag", "showInFolder"}},
        {"source", {"hold", "transcribe", "showInFolder", "sheet.findMissing"}},
        {"playbook", {"library.add", "library.show", "sheet.bringIn"}},
        {"sound", {"library.add", "library.listen", "library.show"}},
        {"preset", {"sheet.renamePreset", "preset.remove"}},
        {"transcript",
         {"key.addToEnd", "key.insert", "transcript.note", "transcript.copy", "transcript.correctEverywhere",
          "transcript.search"}},
        {"video", {"renameVideo", "duplicateVideo", "deleteVideo", "sheet.export"}},
    };
    QVariantList lines;
    const auto found = menus.find(kind);
    if (found == menus.end()) return lines;
    for (const auto* id : found->second)
        if (const auto* action = Actions::find(id)) lines.append(shown(*action, *this));
    return lines;
}

void OpenProject::toggleMute(const QString& name) {
    const auto lane = fromRawText<Lane>(name.toStdString());
    if (!lane || !editor().video()) return;
    // Turning a lane off is listening rather than editing: it is kept, and is no step.
    editor().closeDrag();
    editor().apply([&, id = *editor().openVideo()](Project& project) {
        for (auto& video : project.videos.edit())
            if (video.id == id) {
                if (!video.look) video.look.emplace();
                if (!video.look->mix) video.look->mix.emplace();
                video.look->mix->toggleMute(*lane);
            }
    });
}

void OpenProject::toggleSolo(const QString& name) {
    const auto lane = fromRawText<Lane>(name.toStdString());
    if (!lane) return;
    auto monitoring = editor().monitoring();
    if (monitoring.soloed.erase(*lane) == 0) monitoring.soloed.insert(*lane);
    editor().setMonitoring(monitoring);
}

QVariantList OpenProject::found(const QString& words) const {
    QVariantList lines;
    for (const auto* action : ActionSearch::find(words)) lines.append(shown(*action, *this));
    return lines;
}

/// Moves an end of the cut under the playhead there, as a hand would.
void OpenProject::trimToPlayhead(bool start) {
    auto& session = editor();
    const auto place = VideoTime::locate(session.playback.time(), session.video()->cuts);
    if (!place) return;
    const auto cut = session.video()->cuts[place->cut].id;
    CutCommands::trim(session, cut, start, place->at);
    CutCommands::endTrim(session, cut, start, start ? "Trim Start" : "Trim End");
}

void OpenProject::setTool(const QString& name) {
    if (const auto tool = fromRawText<EditingTool>(name.toStdString())) editor().setTool(*tool);
}

void OpenProject::setFocus(const QString& viewer) {
    if (const auto which = fromRawText<Viewer>(viewer.toStdString())) editor().setFocus(*which);
}

void OpenProject::newVideo(const QString& title, const QString& aspect) {
    const auto named = title.trimmed().isEmpty() ? QString("Untitled Video") : title.trimmed();
    const auto shape = fromRawText<Video::Aspect>(aspect.toStdString());
    VideoCommands::create(editor(), shape.value_or(VideoCommands::lastAspect()), named.toStdString());
}

void OpenProject::renameVideo(const QString& title) {
    if (editor().openVideo() && !title.trimmed().isEmpty())
        VideoCommands::rename(editor(), *editor().openVideo(), title.trimmed().toStdString());
}

QString OpenProject::lastAspect() const {
    const auto aspect = rawText(VideoCommands::lastAspect());
    return QString::fromUtf8(aspect.data(), static_cast<qsizetype>(aspect.size()));
}

QVariantMap OpenProject::askToRename() const {
    const auto clip = browserModel.askedClip();
    if (!clip) return {};
    const auto question = FootageCommands::askToRename(editor(), *clip);
    return {{"title", QString::fromStdString(question.title)},
            {"text", QString::fromStdString(question.text.value_or(""))},
            {"name", QString::fromStdString(editor().clip(*clip)->name.value_or(question.name))}};
}

void OpenProject::renameClip(const QString& name) {
    if (const auto clip = browserModel.askedClip())
        FootageCommands::renameClip(editor(), *clip, name.trimmed().toStdString());
}

void OpenProject::findMissing(const QString& folder) {
    IntakeCommands::findMissing(editor(), folder.toStdString());
}

}
