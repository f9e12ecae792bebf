#include "app/desktop/OpenProject.h"

#include "app/desktop/Actions.h"
#include "app/desktop/inspector/TypedTime.h"
#include "app/desktop/models/ClipTitle.h"
#include "app/desktop/services/Clipboard.h"
#include "app/desktop/services/PlatformWords.h"
#include "app/editor/Timecode.h"
#include "core/render/plan/Plan.h"
#include "platform/base/RawText.h"

#include <algorithm>
#include <limits>

namespace murbo {
namespace {

QString text(const std::string& given) {
    return QString::fromStdString(given);
}
QString text(std::string_view given) {
    return QString::fromUtf8(given.data(), static_cast<qsizetype>(given.size()));
}
QString text(const std::optional<std::string>& given) {
    return text(given.value_or(""));
}

}

OpenProject::OpenProject(std::unique_ptr<ProjectDocument> opened)
    : document(std::move(opened)),
      pictures([this](const UUID& source) { return editor().filmstrip(source); },
               [this](const UUID& source) { return editor().loudness(source); },
               [this](const UUID& cut) { return card(cut); }),
      sidebarModel(editor()),
      browserModel(editor()) {
    connectAll();
}

OpenProject::~OpenProject() = default;

std::optional<GeneratedCard> OpenProject::card(const UUID& id) const {
    const auto* video = editor().video();
    if (!video) return {};
    const auto found = std::ranges::find(video->cuts, id, &Cut::id);
    if (found == video->cuts.end()) return {};
    return GeneratedCard{*found, video->aspect, editor().package()};
}

void OpenProject::connectAll() {
    auto* session = &editor();
    connect(document.get(), &ProjectDocument::unsavedChanged, this, &OpenProject::unsavedChanged);
    connect(document.get(), &ProjectDocument::told, this, &OpenProject::tell);
    connect(session, &Editor::historyChanged, this, &OpenProject::historyChanged);
    for (const auto signal : {&Work::labelChanged, &Work::progressChanged})
        connect(&session->work, signal, this, &OpenProject::workChanged);
    connect(&session->work, &Work::beeped, this, &OpenProject::beeped);
    connect(session, &Editor::projectChanged, this, [this] {
        emit videoChanged();
        emit heldChanged();
        emit lanesChanged();
    });
    connect(session, &Editor::openVideoChanged, this, &OpenProject::videoChanged);
    connect(session, &Editor::openVideoChanged, this, &OpenProject::lanesChanged);
    connect(session, &Editor::monitoringChanged, this, &OpenProject::lanesChanged);
    connect(session, &Editor::heldClipChanged, this, &OpenProject::heldChanged);
    connect(session, &Editor::heldSourceChanged, this, &OpenProject::heldChanged);
    connect(session, &Editor::rangeChanged, this, &OpenProject::heldChanged);
    connect(session, &Editor::missingChanged, this, &OpenProject::heldChanged);
    connect(session, &Editor::missingChanged, this, &OpenProject::videoChanged);
    connect(session, &Editor::toolChanged, this, &OpenProject::toolChanged);
    connect(session, &Editor::focusChanged, this, &OpenProject::focusChanged);
    connect(session, &Editor::skimmingChanged, this, &OpenProject::switchesChanged);
    connect(session, &Editor::snappingChanged, this, &OpenProject::switchesChanged);
    connect(session, &Editor::problemChanged, this, &OpenProject::problemChanged);
    connect(session, &Editor::said, this, &OpenProject::tell);
    connect(session, &Editor::beeped, this, &OpenProject::beeped);
    connect(session, &Editor::copied, this, &Clipboard::put);
    connect(session, &Editor::edgeChanged, this, [this] { emit heldChanged(); });
    connect(&exportQueue, &ExportQueue::said, this, &OpenProject::tell);
}

void OpenProject::close() {
    emit aboutToAct();
    editor().playback.pause();
    editor().source.pause();
    editor().work.cancelAll();
    document->close();
}

/// What was undone can be given again, and the other way round: the toast has a button for it.
void OpenProject::tell(const QString& words) {
    const bool undid = words.startsWith("Undid ");
    const bool redid = words.startsWith("Redid ");
    const bool deleted = words.endsWith("Undo brings it back");
    emit toast(PlatformWords::shown(words), undid ? "redo" : redid || deleted ? "undo" : "");
}

// ------------------------------------------------------------------------ shown --

QString OpenProject::name() const {
    return text(package().stem().string());
}

QString OpenProject::unsaved() const {
    return text(document->unsaved());
}

QString OpenProject::undoName() const {
    return text(editor().unfinished() ? editor().unfinished() : editor().history().undoName());
}

QString OpenProject::redoName() const {
    return text(editor().history().redoName());
}

QString OpenProject::workLabel() const {
    return text(editor().work.label());
}

double OpenProject::workProgress() const {
    return editor().work.progress().value_or(-1);
}

QString OpenProject::videoTag() const {
    const auto* video = editor().video();
    return video ? text(video->tag()) : "";
}

QString OpenProject::videoTitle() const {
    const auto* video = editor().video();
    return video ? text(video->title) : "";
}

QString OpenProject::aspect() const {
    const auto* video = editor().video();
    return video ? text(rawText(video->aspect)) : "";
}

bool OpenProject::upright() const {
    const auto* video = editor().video();
    if (!video) return true;
    const auto size = Plan::frameSize(video->aspect);
    return size.height > size.width;
}

int OpenProject::cuts() const {
    const auto* video = editor().video();
    return video ? static_cast<int>(video->cuts.size()) : 0;
}

double OpenProject::videoLength() const {
    const auto* video = editor().video();
    return video ? video->length() : 0;
}

QString OpenProject::videoWords() const {
    if (!editor().video()) return "";
    return fine(videoLength()) + QString(" · %1 %2").arg(cuts()).arg(cuts() == 1 ? "cut" : "cuts");
}

QString OpenProject::missingCuts() const {
    if (!editor().video()) return "";
    const auto gone = std::ranges::count_if(
        editor().video()->cuts, [this](const Cut& cut) { return editor().missing().contains(cut.source); });
    if (gone == 0) return "";
    return QString("%1 of %2 cuts %3 no file").arg(gone).arg(cuts()).arg(gone == 1 ? "has" : "have");
}

QString OpenProject::heldTag() const {
    const auto* clip = editor().held();
    return clip ? text(clip->tag()) : "";
}

QString OpenProject::heldTitle() const {
    if (const auto* clip = editor().held()) return text(ClipTitle::besideTag(*clip));
    const auto* source = editor().heldSource() ? editor().project().source(*editor().heldSource()) : nullptr;
    return source ? text(source->name()) : "";
}

QString OpenProject::rangeWords() const {
    const auto range = editor().range();
    return range ? "range " + fine(range->to - range->from) : "";
}

bool OpenProject::heldMissing() const {
    const auto* clip = editor().held();
    const auto source = clip ? std::optional(clip->source) : editor().heldSource();
    return source && editor().missing().contains(*source);
}

QString OpenProject::tool() const {
    return text(rawText(editor().tool()));
}

QString OpenProject::focus() const {
    return text(rawText(editor().focus()));
}

QStringList OpenProject::mutedLanes() const {
    const auto* video = editor().video();
    QStringList lanes;
    if (!video || !video->look || !video->look->mix) return lanes;
    for (const auto lane : allLanes)
        if (video->look->mix->isMuted(lane)) lanes.append(text(rawText(lane)));
    return lanes;
}

QStringList OpenProject::soloLanes() const {
    QStringList lanes;
    for (const auto lane : editor().monitoring().soloed) lanes.append(text(rawText(lane)));
    return lanes;
}

QString OpenProject::problem() const {
    return text(editor().problem());
}

void OpenProject::setSheet(const QString& name) {
    if (name == openSheet) return;
    openSheet = name;
    emit sheetChanged();
}

QString OpenProject::clock(double time) const {
    return text(Timecode::clock(time));
}

QString OpenProject::fine(double time) const {
    return text(Timecode::fine(time));
}

double OpenProject::seconds(const QString& typed) const {
    return TypedTime::seconds(typed).value_or(std::numeric_limits<double>::quiet_NaN());
}

}
