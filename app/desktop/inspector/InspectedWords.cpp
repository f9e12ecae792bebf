#include "app/desktop/inspector/InspectedWords.h"

#include "app/desktop/inspector/BookShelf.h"
#include "app/desktop/inspector/RowMaker.h"
#include "app/desktop/models/ClipTitle.h"
#include "app/editor/Editor.h"
#include "app/editor/Timecode.h"
#include "core/ai/Said.h"
#include "core/model/ShownMoments.h"
#include "core/model/edits/VideoEdits.h"

#include <algorithm>
#include <filesystem>

namespace murbo {
namespace {

QString fine(double time) {
    return RowMaker::said(Timecode::fine(time));
}

QString bookName(const std::string& id, std::optional<std::int64_t> version, BookShelf& shelf) {
    const auto* book = shelf.book(id, version);
    return RowMaker::said(book ? book->playbook.name : id);
}

/// "C14.03–05", as the block on the timeline is called.
QString tagsOf(const Cut& cut, const Editor& editor) {
    const auto said = editor.allSaid();
    if (const auto ends = said->ends(cut)) {
        const auto first = RowMaker::said(ends->first->tag);
        const auto last = RowMaker::said(ends->last->tag);
        const auto point = first.lastIndexOf('.');
        if (first == last) return first;
        return first + "–" +
               (point > 0 && last.startsWith(first.left(point + 1)) ? last.mid(point + 1) : last);
    }
    const auto* source = editor.project().source(cut.source);
    return source ? RowMaker::said(source->name()) : "Missing footage";
}

InspectedWords ofCut(const Pick& pick, const Editor& editor, BookShelf& shelf) {
    const auto& cuts = editor.video()->cuts;
    const auto at = VideoEdits::index(*editor.video(), pick.id);
    if (!at) return {"cut", "", ""};
    const auto& cut = cuts[*at];
    const auto title = cut.generator ? bookName(cut.generator->playbook, cut.generator->version, shelf)
                                     : tagsOf(cut, editor);
    return {"cut", title, QString("Cut %1 of %2").arg(*at + 1).arg(cuts.size())};
}

template <class Record>
const Record* find(const List<Record>& list, const UUID& id) {
    const auto found = std::ranges::find(list, id, &Record::id);
    return found == list.end() ? nullptr : &*found;
}

/// When in the video something begins that stands at a moment of a source.
QString beginning(const UUID& source, double at, const Video& video) {
    const auto time = ShownMoments(video.cuts).on(source, at);
    return time ? "at " + fine(*time) : "not in the cuts";
}

InspectedWords ofLook(const Pick& pick, const Video& video, BookShelf& shelf) {
    if (const auto* shot = find(video.look->shots, pick.id))
        return {"shot",
                shot->playbook ? bookName(*shot->playbook, shot->version, shelf)
                               : RowMaker::titled(rawText(shot->layout)),
                "Shot " + beginning(shot->source, shot->at, video)};
    if (const auto* overlay = find(video.look->overlays, pick.id))
        return {"overlay", bookName(overlay->playbook, overlay->version, shelf),
                "Overlay " + beginning(overlay->source, overlay->at, video)};
    for (const auto* cues : {&video.look->sounds, &video.look->music})
        if (const auto* cue = find(*cues, pick.id)) {
            const bool music = cues == &video.look->music;
            return {music ? "music" : "sound",
                    RowMaker::said(std::filesystem::path(cue->file).stem().string()),
                    (music ? "Song " : "Sound ") + beginning(cue->source, cue->at, video)};
        }
    return {};
}

}

InspectedWords InspectedWords::of(const Pick& pick, const Editor& editor, BookShelf& shelf) {
    if (pick.kind == Pick::Kind::cut) return ofCut(pick, editor, shelf);
    if (pick.kind == Pick::Kind::caption) return {"caption", "Caption", ""};
    return editor.video()->look ? ofLook(pick, *editor.video(), shelf) : InspectedWords();
}

InspectedWords InspectedWords::ofSeveral(std::size_t count, const char* what) {
    return {what == std::string_view("clip") ? "clips" : "several", QString("%1 %2s").arg(count).arg(what),
            ""};
}

InspectedWords InspectedWords::ofClip(const Clip& clip) {
    return {"clip", RowMaker::said(ClipTitle::besideTag(clip)), "Clip " + RowMaker::said(clip.tag())};
}

InspectedWords InspectedWords::ofSource(const Source& source) {
    return {"source", RowMaker::said(source.name()),
            source.kind == Source::Kind::stream ? "Stream" : "Source"};
}

InspectedWords InspectedWords::ofVideo(const Video* video) {
    if (!video) return {"nothing", "Nothing picked", ""};
    return {"video", RowMaker::said(video->title), "Video " + RowMaker::said(video->tag())};
}

}
