#include "app/desktop/inspector/ClipRows.h"

#include "app/desktop/inspector/RowMaker.h"
#include "app/editor/Timecode.h"
#include "core/model/Project.h"

#include <algorithm>

namespace murbo::ClipRows {
namespace {

constexpr std::size_t maxNotes = 40; // more is for the Transcript tab

qsizetype placeOf(const std::optional<std::int64_t>& rating) {
    return rating == 1 ? 1 : rating == -1 ? 2 : 0;
}

QString fine(double time) {
    return RowMaker::said(Timecode::fine(time));
}

InspectorRow ratingOf(const Clip& clip) {
    return RowMaker::choice("rating", "Rating", {"None", "Favourite", "Rejected"}, placeOf(clip.rating),
                            clip.rating.has_value());
}

void addWords(InspectorRowList& rows, const char* id, const char* name,
              const std::optional<std::string>& words) {
    if (words && !words->empty()) rows.push_back(RowMaker::words(id, name, RowMaker::said(*words)));
}

std::optional<std::string> lineOf(const Project& project, const Clip& clip, const UUID& line) {
    for (const auto& said : project.transcript(clip.source).lines)
        if (said.id == line) return "“" + said.text + "”";
    return {};
}

void addSummary(InspectorRowList& rows, const Clip& clip, const Project& project) {
    rows.push_back(RowMaker::section("Description"));
    if (!clip.summary) return rows.push_back(RowMaker::words("undescribed", "", "Not described yet"));
    const auto& summary = *clip.summary;
    if (clip.name) addWords(rows, "described", "Described as", summary.title);
    addWords(rows, "summary", "Summary", summary.summary);
    addWords(rows, "energy", "Energy", summary.energy);
    addWords(rows, "kind", "Kind", summary.kind);
    if (summary.keyLine) addWords(rows, "keyLine", "Key line", lineOf(project, clip, *summary.keyLine));
    addWords(rows, "unsure", "Unsure", summary.unsure);
}

void addNotes(InspectorRowList& rows, const Clip& clip, const Project& project) {
    InspectorRowList notes;
    for (const auto& note : project.transcript(clip.source).notes)
        if (clip.holds(note.middle()) && notes.size() < maxNotes)
            notes.push_back(RowMaker::words("note." + note.id.text(), fine(note.start - clip.start),
                                            RowMaker::said(note.text)));
    if (notes.empty()) return;
    rows.push_back(RowMaker::section("Notes"));
    std::ranges::move(notes, std::back_inserter(rows));
}

}

InspectorRowList of(const Clip& clip, const Project& project) {
    InspectorRowList rows;
    // What is typed becomes the owner's name: the tag or description that stands after it elsewhere stays
    // out.
    const auto name = clip.name.value_or(clip.summary ? clip.summary->title : "");
    rows.push_back(RowMaker::text("title", "Title", RowMaker::said(name), clip.name.has_value()));
    rows.push_back(ratingOf(clip));
    rows.push_back(RowMaker::words("length", "Length", fine(clip.length())));
    rows.push_back(RowMaker::words("stretch", "Stretch", fine(clip.start) + " – " + fine(clip.end)));
    QStringList marks;
    for (const auto mark : clip.marks) marks.append(fine(mark - clip.start));
    if (!marks.empty()) rows.push_back(RowMaker::words("marks", "Marks", marks.join(", ")));
    addSummary(rows, clip, project);
    addNotes(rows, clip, project);
    return rows;
}

InspectorRowList ofSeveral(const std::vector<UUID>& clips, const Project& project) {
    std::optional<InspectorRow> rating;
    double length = 0;
    for (const auto& clip : project.clips) {
        if (std::ranges::find(clips, clip.id) == clips.end()) continue;
        length += clip.length();
        auto row = ratingOf(clip);
        if (rating) {
            row.mixed = rating->mixed || rating->current != row.current;
            row.changed |= rating->changed;
        }
        rating = std::move(row);
    }
    if (!rating) return {};
    return {*rating, RowMaker::words("length", "Length", fine(length))};
}

std::optional<std::int64_t> ratingAt(int place) {
    if (place == 1) return 1;
    if (place == 2) return -1;
    return {};
}

}
