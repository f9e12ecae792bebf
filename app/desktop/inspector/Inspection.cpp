#include "app/desktop/inspector/Inspection.h"

#include "app/desktop/captions/CaptionEdits.h"
#include "app/desktop/inspector/ClipRows.h"
#include "app/desktop/inspector/CutRows.h"
#include "app/desktop/inspector/InspectedWords.h"
#include "app/desktop/inspector/PickRows.h"
#include "app/desktop/inspector/RowMaker.h"
#include "app/desktop/inspector/SourceRows.h"
#include "app/desktop/inspector/VideoRows.h"
#include "app/editor/Editor.h"
#include "app/editor/commands/Changes.h"
#include "app/editor/commands/CutCommands.h"
#include "app/editor/commands/FootageCommands.h"
#include "app/editor/commands/RemoveCommands.h"
#include "app/editor/commands/TimelinePicks.h"
#include "app/editor/commands/VideoCommands.h"
#include "core/model/edits/VideoEdits.h"
#include "core/playbooks/Playbooks.h"

#include <algorithm>
#include <limits>

namespace murbo {

/// What is inspected: picks of the timeline, or clips, or a source; with none of them the open video.
struct Inspection::InspectedThings {
    std::vector<Pick> picks;
    std::vector<UUID> clips;
    std::optional<UUID> source;

    bool operator==(const InspectedThings&) const = default;
    bool isVideo() const { return picks.empty() && clips.empty() && !source; }

    static InspectedThings of(const Editor& editor) {
        InspectedThings subject;
        if (editor.inspecting() == Inspecting::browser) {
            for (const auto& clip : FootageCommands::clipsActedOn(editor))
                if (editor.clip(clip)) subject.clips.push_back(clip);
            if (subject.clips.empty() && editor.heldSource() && editor.project().source(*editor.heldSource()))
                subject.source = editor.heldSource();
            if (!subject.isVideo()) return subject;
        }
        for (const auto& pick : TimelinePicks::all(editor))
            if (editor.exists(pick)) subject.picks.push_back(pick);
        return subject;
    }
};

Inspection::Inspection(Editor& session)
    : editor(session), shelf(session.package()), subject(std::make_unique<InspectedThings>()) {
    for (const auto signal :
         {&EditorFields::pickedChanged, &EditorFields::morePickedChanged, &EditorFields::pickedClipsChanged,
          &EditorFields::heldClipChanged, &EditorFields::heldSourceChanged, &EditorFields::inspectingChanged,
          &EditorFields::openVideoChanged, &EditorFields::missingChanged})
        connect(&editor, signal, this, &Inspection::refresh);
    connect(&editor, &Editor::projectChanged, this, &Inspection::refresh);
    connect(&facts, &FileFacts::changed, this, &Inspection::refresh);
    refresh();
}

Inspection::~Inspection() = default;

int Inspection::count() const {
    return static_cast<int>(std::max(subject->picks.size(), subject->clips.size()));
}

const std::vector<Pick>& Inspection::picked() const {
    return subject->picks;
}

const InspectorRow* Inspection::row(const QString& id) const {
    const auto found = std::ranges::find(shown.rows(), id.toStdString(), &InspectorRow::id);
    return found == shown.rows().end() ? nullptr : &*found;
}

// ------------------------------------------------------------------------ shown --

void Inspection::refresh() {
    auto now = InspectedThings::of(editor);
    // The names don't change while something is dragged, and finding them goes through all that was said.
    const bool goesOn = editor.unfinished() && now == *subject;
    *subject = std::move(now);
    if (!goesOn) describe();
    auto rows = made();
    std::string section;
    for (auto& next : rows) {
        if (next.control == InspectorRow::Control::section) section = next.id;
        next.section = section;
    }
    // A control can't become another one: rows of the same id that differ in that are made anew.
    const auto becomesAnother = [&](const InspectorRow& next) {
        const auto* current = row(QString::fromStdString(next.id));
        return current && current->control != next.control;
    };
    if (std::ranges::any_of(rows, becomesAnother)) shown.assign({});
    shown.assign(std::move(rows));
    emit changed();
}

void Inspection::describe() {
    const auto words = subject->picks.size() > 1   ? InspectedWords::ofSeveral(subject->picks.size(), "item")
                       : !subject->picks.empty()   ? InspectedWords::of(subject->picks[0], editor, shelf)
                       : subject->clips.size() > 1 ? InspectedWords::ofSeveral(subject->clips.size(), "clip")
                       : !subject->clips.empty()   ? InspectedWords::ofClip(*editor.clip(subject->clips[0]))
                       : subject->source
                           ? InspectedWords::ofSource(*editor.project().source(*subject->source))
                           : InspectedWords::ofVideo(editor.video());
    shownKind = words.kind;
    shownTitle = words.title;
    shownNote = words.note;
}

InspectorRowList Inspection::made() {
    const auto& project = editor.project();
    if (!subject->picks.empty()) return PickRows::common(subject->picks, {editor, shelf, facts});
    if (subject->clips.size() == 1) return ClipRows::of(*editor.clip(subject->clips[0]), project);
    if (!subject->clips.empty()) return ClipRows::ofSeveral(subject->clips, project);
    if (subject->source) {
        const auto& source = *project.source(*subject->source);
        const bool missing = editor.missing().contains(source.id);
        return SourceRows::of(source, project, missing ? "" : facts.words(source.path), missing);
    }
    return editor.video() ? VideoRows::of(*editor.video(), project) : InspectorRowList();
}

// ---------------------------------------------------------------------- changes --

void Inspection::set(const QString& id, const QVariant& value) {
    const auto* found = row(id);
    if (!found || (value.isValid() && !found->mixed && value == found->current)) return;
    const auto held = *found; // the rows change with the project
    if (setByCommand(held.id, value)) return;
    editor.change(stepName(held, value), [&](Project& project) { write(project, held.id, value); });
}

void Inspection::drag(const QString& id, const QVariant& value) {
    const auto* found = row(id);
    if (!found || CutRows::isEnd(found->id)) return;
    const auto held = *found;
    editor.dragAndRedraw([&](Project& project) { write(project, held.id, value); });
    editor.endDragSoon(stepName(held, value));
    dragName = stepName(held, value);
}

void Inspection::release() {
    if (!dragName.empty()) editor.closeDrag(std::exchange(dragName, {}));
}

void Inspection::cancel() {
    if (!std::exchange(dragName, {}).empty()) editor.cancelDrag();
}

void Inspection::write(Project& project, const std::string& id, const QVariant& value) {
    if (subject->source) {
        for (std::size_t at = 0; at < project.sources.size(); ++at)
            if (project.sources[at].id == *subject->source)
                SourceRows::set(project.sources.edit()[at], project, id, value);
        return;
    }
    if (!editor.video()) return;
    auto& video = Changes::openVideo(editor, project);
    for (const auto& pick : subject->picks) PickRows::set(video, pick, shelf, id, value);
    if (!subject->isVideo()) return;
    auto mix = video.look && video.look->mix ? *video.look->mix : Mix();
    if (!VideoRows::setLevel(mix, id, value)) return;
    if (!video.look) video.look.emplace();
    video.look->mix = mix;
}

/// What a session has a command for is done by that.
bool Inspection::setByCommand(const std::string& id, const QVariant& value) {
    if (!subject->clips.empty()) return setOnClips(id, value);
    if (subject->isVideo()) return setOnVideo(id, value);
    if (subject->picks.size() == 1 && subject->picks[0].kind == Pick::Kind::caption) {
        const auto caption = subject->picks[0];
        // It is as the list of captions does it: a piece of a line changes alone.
        if (id == "big") CaptionEdits::toggleBig(editor, caption);
        if (id == "hidden") CaptionEdits::toggleHidden(editor, caption);
        return true;
    }
    if (id == "layout") return setLayout(value.toString().toStdString());
    if (subject->picks.size() != 1 || subject->picks[0].kind != Pick::Kind::cut || !CutRows::isEnd(id))
        return false;
    if (value.isValid()) setEnd(subject->picks[0].id, id, value.toDouble());
    return true;
}

bool Inspection::setOnVideo(const std::string& id, const QVariant& value) {
    const auto* video = editor.video();
    if (!video) return true;
    if (id == "title") {
        const auto title = RowMaker::textOf(value);
        if (title) VideoCommands::rename(editor, UUID(video->id), *title);
    } else if (id == "aspect") {
        const auto at = static_cast<std::size_t>(std::max(value.toInt(), 0));
        if (at < rawTexts(Video::Aspect{}).size())
            VideoCommands::setAspect(editor, static_cast<Video::Aspect>(at));
    } else if (id == "language") {
        const auto code = VideoRows::languageAt(editor.project(), value.toInt());
        editor.change("Set Language", [&](Project& project) { project.language = code; });
    } else {
        return false;
    }
    return true;
}

bool Inspection::setOnClips(const std::string& id, const QVariant& value) {
    const auto clips = subject->clips;
    if (id == "rating") FootageCommands::rate(editor, clips, ClipRows::ratingAt(value.toInt()));
    if (id == "title")
        FootageCommands::renameClip(editor, clips[0], value.toString().trimmed().toStdString());
    return true;
}

/// Moves an end of a cut as a hand would, with what is played round it after.
void Inspection::setEnd(UUID id, const std::string& end, double to) {
    const auto& cuts = editor.video()->cuts;
    const auto cut = std::ranges::find(cuts, id, &Cut::id);
    if (cut == cuts.end()) return;
    const bool start = end == "in";
    const double wanted = end == "length" ? cut->start + to : to;
    if (cut->generator) // drawn, for as long as one likes
        return editor.change("Trim End", [&](Project& project) {
            VideoEdits::trimEnd(Changes::openVideo(editor, project), id, wanted,
                                std::numeric_limits<double>::infinity());
        });
    CutCommands::trim(editor, id, start, wanted);
    CutCommands::endTrim(editor, id, start, start ? "Trim Start" : "Trim End");
}

bool Inspection::setLayout(const std::string& layout) {
    const auto book = fromRawText<Shot::Layout>(layout) ? std::nullopt : Playbooks::find(layout);
    if (book) Changes::pin(editor, *book);
    const auto name = book ? RowMaker::said(book->playbook.name) : RowMaker::titled(layout);
    editor.change("Cut to " + name.toStdString(),
                  [&](Project& project) { write(project, "layout", RowMaker::said(layout)); });
    return true;
}

std::string Inspection::stepName(const InspectorRow& row, const QVariant& value) const {
    if (row.id.starts_with("level.")) return "Change Levels";
    if (row.id == "mute" && row.name == "Mute") {
        const bool cut = subject->picks.size() == 1 && subject->picks[0].kind == Pick::Kind::cut;
        return std::string(value.toBool() ? "Mute" : "Unmute") + (cut ? " Clip" : "");
    }
    return "Change " + row.name.toStdString();
}

// ---------------------------------------------------------------------- buttons --

void Inspection::press(const QString& id) {
    if (!row(id)) return;
    if (id == "find") return emit findAsked();
    if (id == "replace") return askFile(id);
    // A copy: what is inspected changes with the project.
    const auto pick = subject->picks.size() == 1 ? std::optional(subject->picks[0]) : std::nullopt;
    if (id == "takeOutQuiet" && pick) CutCommands::takeOutQuiet(editor, pick->id);
    if (id == "update" && pick) return updateBook(*pick, row(id)->current.toString().toStdString());
    if (id != "framing") return;
    if (pick) {
        const auto& cuts = editor.video()->cuts;
        const auto cut = std::ranges::find(cuts, pick->id, &Cut::id);
        if (cut == cuts.end()) return;
        const auto [source, at] = std::pair(cut->source, cut->start);
        editor.holdClip(std::nullopt);
        editor.holdSource(source);
        editor.source.seek(at);
    }
    editor.setFocus(Viewer::source);
    editor.setFraming(true);
}

void Inspection::takeRange(const QString& id) {
    const auto* video = editor.video();
    if (!row(id) || subject->picks.empty() || !video || !video->look) return;
    const auto& overlays = video->look->overlays;
    const auto overlay = std::ranges::find(overlays, subject->picks[0].id, &Overlay::id);
    const auto* clip = editor.held();
    const auto source = clip ? std::optional(clip->source) : editor.heldSource();
    const auto range = editor.range();
    if (overlay == overlays.end()) return;
    if (!range || source != overlay->source)
        return editor.refuse("Mark a stretch of the recording that it lies on first, in the source viewer");
    set(id, QString("rec:%1-%2").arg(range->from, 0, 'f', 2).arg(range->to, 0, 'f', 2));
}

void Inspection::removePicked() {
    if (!subject->picks.empty()) RemoveCommands::removePicked(editor);
}

}
