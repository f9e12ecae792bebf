#include "app/desktop/models/BrowserRows.h"

#include "app/desktop/models/ClipTitle.h"
#include "app/editor/Editor.h"
#include "app/editor/Timecode.h"
#include "app/editor/commands/Transcriptions.h"
#include "core/model/ByMiddle.h"
#include "platform/base/RawText.h"
#include "platform/base/Text.h"

#include <algorithm>
#include <map>

#include <fmt/format.h>

namespace murbo::BrowserRows {
namespace {

QString text(const std::string& given) {
    return QString::fromStdString(given);
}

std::string counted(std::size_t number, const char* one, const char* more) {
    return fmt::format("{} {}", number, number == 1 ? one : more);
}

/// What rows are worked out from. The lines of a source are put in order once, for all of its clips.
struct RowSources {
    const Editor& editor;
    const Transcriptions& transcriptions;
    std::map<UUID, ByMiddle<Line>> sources{};

    /// The lines of a clip that still count as said.
    std::vector<const Line*> linesOf(const Clip& clip) {
        auto known = sources.find(clip.source);
        if (known == sources.end())
            known = sources.emplace(clip.source, editor.project().transcript(clip.source).lines).first;
        auto lines = known->second.in(clip);
        std::erase_if(lines, [](const Line* line) { return line->isGone(); });
        return lines;
    }
};

/// Says how transcribing what the row shows fares, where it does not just stand there.
void noteTranscription(BrowserRow& row, const Transcriptions& state) {
    if (!row.source) return;
    const Stretch range{row.from, row.to};
    row.hearing = state.isHearing(*row.source, range);
    if (row.hearing) row.note = "transcribing…";
    if (const auto* failure = state.failure(*row.source, range)) {
        row.failed = true;
        row.note = text(failure->words);
    }
}

BrowserRow rowOf(const Clip& clip, RowSources& from) {
    const auto& editor = from.editor;
    BrowserRow row;
    const auto lines = from.linesOf(clip);
    row.id = "clip:" + clip.id.text();
    row.record = clip.id;
    row.title = text(ClipTitle::besideTag(clip));
    row.tag = text(clip.tag());
    row.detail = row.tag;
    if (clip.summary && clip.summary->kind)
        row.detail += " · " + text(*clip.summary->kind);
    else if (row.title == row.tag)
        row.detail = "not described";
    row.note = lines.empty() ? "not transcribed" : text(counted(lines.size(), "line", "lines"));
    for (const auto* line : lines)
        if (clip.summary && clip.summary->keyLine == line->id) row.note = "“" + text(line->text) + "”";
    row.length = text(Timecode::clock(clip.length()));
    row.source = clip.source;
    row.from = clip.start;
    row.to = clip.end;
    noteTranscription(row, from.transcriptions);
    row.rating = static_cast<int>(clip.rating.value_or(0));
    row.missing = editor.missing().contains(clip.source);
    row.picked = std::ranges::find(editor.pickedClips(), clip.id) != editor.pickedClips().end();
    row.held = editor.heldClip() == clip.id;
    return row;
}

BrowserRow rowOf(const Source& source, RowSources& from) {
    const auto& editor = from.editor;
    BrowserRow row;
    const auto clips = std::ranges::count(editor.project().clips, source.id, &Clip::source);
    row.id = "source:" + source.id.text();
    row.kind = BrowserRow::Kind::source;
    row.record = source.id;
    row.title = text(source.name());
    row.detail = text(counted(static_cast<std::size_t>(clips), "clip", "clips"));
    row.missing = editor.missing().contains(source.id);
    row.note = row.missing ? "file not found" : text(source.note.value_or(""));
    row.length = text(Timecode::clock(source.length));
    row.source = source.id;
    row.to = source.length;
    if (clips == 0) noteTranscription(row, from.transcriptions); // else its clips say it
    row.held = !editor.heldClip() && editor.heldSource() == source.id;
    row.picked = row.held;
    return row;
}

BrowserRow rowOf(const Video& video, RowSources& from) {
    const auto& editor = from.editor;
    BrowserRow row;
    row.id = "video:" + video.id.text();
    row.kind = BrowserRow::Kind::video;
    row.record = video.id;
    row.title = text(video.title);
    row.tag = text(video.tag());
    row.detail = row.tag + " · " + QString::fromUtf8(rawText(video.aspect).data());
    row.note = text(counted(video.cuts.size(), "cut", "cuts"));
    row.length = text(Timecode::clock(video.length()));
    for (const auto& cut : video.cuts) {
        if (row.source || cut.generator) continue;
        row.source = cut.source;
        row.from = cut.start;
        row.to = cut.end;
    }
    row.held = editor.openVideo() == video.id;
    row.picked = row.held;
    return row;
}

BrowserRow rowOf(const Bookmark& bookmark, RowSources& from) {
    const auto& editor = from.editor;
    BrowserRow row;
    const auto* source = editor.project().source(bookmark.source);
    row.id = "bookmark:" + bookmark.id.text();
    row.kind = BrowserRow::Kind::bookmark;
    row.record = bookmark.id;
    row.tag = text(bookmark.tag());
    row.title = bookmark.note ? text(*bookmark.note) : row.tag;
    row.detail = row.tag + " · " + text(Timecode::clock(bookmark.at));
    row.note = source ? text(source->name()) : "";
    row.source = bookmark.source;
    row.from = bookmark.at;
    row.to = bookmark.end.value_or(bookmark.at + 1);
    if (bookmark.end) row.length = text(Timecode::clock(*bookmark.end - bookmark.at));
    return row;
}

template <class Records, class Wanted>
std::vector<BrowserRow> rows(const Records& records, RowSources& from, Wanted wanted) {
    std::vector<BrowserRow> list;
    for (const auto& record : records)
        if (wanted(record)) list.push_back(rowOf(record, from));
    return list;
}

std::vector<BrowserRow> all(RowSources& from) {
    const auto& editor = from.editor;
    const auto& project = editor.project();
    const auto any = [](const auto&) { return true; };
    const auto& pick = editor.sidebar();
    switch (pick.collection) {
        case Collection::videos:
            return rows(project.videos, from, any);
        case Collection::sources: {
            if (!pick.source) return rows(project.sources, from, any);
            auto list =
                rows(project.sources, from, [&](const Source& source) { return source.id == *pick.source; });
            const auto clips =
                rows(project.clips, from, [&](const Clip& clip) { return clip.source == *pick.source; });
            list.insert(list.end(), clips.begin(), clips.end());
            return list;
        }
        case Collection::clips:
            return rows(project.clips, from, any);
        case Collection::favourites:
            return rows(project.clips, from, [](const Clip& clip) { return clip.rating == 1; });
        case Collection::bookmarks:
            return rows(project.bookmarks, from, any);
        case Collection::missing:
            return rows(project.sources, from,
                        [&](const Source& source) { return editor.missing().contains(source.id); });
        default:
            return {};
    }
}

bool says(const BrowserRow& row, RowSources& from, const std::string& words) {
    if (row.kind != BrowserRow::Kind::clip) return false;
    const auto* clip = from.editor.clip(row.record);
    return clip && std::ranges::any_of(from.linesOf(*clip), [&](const Line* line) {
               return Text::lowercased(line->text).find(words) != std::string::npos;
           });
}

}

std::vector<BrowserRow> of(Editor& editor, const std::string& given) {
    RowSources from{editor, Transcriptions::of(editor)};
    auto list = all(from);
    const auto words = Text::lowercased(Text::trimmed(given));
    if (words.empty()) return list;
    std::erase_if(list, [&](const BrowserRow& row) {
        const auto shown = Text::lowercased((row.title + " " + row.tag + " " + row.detail).toStdString());
        return shown.find(words) == std::string::npos && !says(row, from, words);
    });
    return list;
}

}
