#include "app/editor/commands/MarkCommands.h"

#include "app/editor/commands/Row.h"
#include "core/intake/Clips.h"
#include "core/model/edits/ProjectOperations.h"

#include <algorithm>

namespace murbo::MarkCommands {
namespace {

const Source* heldSource(const Editor& editor) {
    return editor.heldSource() ? editor.project().source(*editor.heldSource()) : nullptr;
}

/// The held source; where none is, a toast says so.
const Source* heldOrRefused(Editor& editor) {
    const auto* source = heldSource(editor);
    if (!source) editor.refuse("Look through a source in the source viewer first");
    return source;
}

/// The clip that took a mark. Others may have changed their places in the list.
const Clip* clipWith(const Project& project, const UUID& source, double mark) {
    const auto found = std::ranges::find_if(project.clips, [&](const Clip& clip) {
        return clip.source == source && std::ranges::find(clip.marks, mark) != clip.marks.end();
    });
    return found == project.clips.end() ? nullptr : &*found;
}

}

void dropClipMark(Editor& editor) {
    const auto* source = heldOrRefused(editor);
    if (!source) return;
    const auto at = editor.source.time();
    const auto id = source->id;
    editor.change("Add Clip Mark", [&](Project& project) { Clips::addAround(project, {at}, id); });
    const auto* clip = clipWith(editor.project(), id, at);
    if (!clip) return;
    editor.holdClipHere(clip->id);
    editor.say("Marked " + clip->tag());
}

void dropBookmark(Editor& editor) {
    const auto* source = heldOrRefused(editor);
    if (!source) return;
    editor.change("Add Bookmark", [&, id = source->id](Project& project) {
        Bookmark bookmark;
        bookmark.number = ProjectOperations::nextNumber(project.lastBookmark);
        bookmark.source = id;
        bookmark.at = editor.source.time();
        if (const auto range = editor.range()) {
            bookmark.at = range->from;
            bookmark.end = range->to;
        }
        project.bookmarks.edit().push_back(bookmark);
    });
}

void removeBookmark(Editor& editor, const UUID& id) {
    editor.change("Remove Bookmark", [&](Project& project) {
        std::erase_if(project.bookmarks.edit(), [&](const Bookmark& one) { return one.id == id; });
    });
}

void addNote(Editor& editor, const std::string& text) {
    const auto* source = heldOrRefused(editor);
    const auto range = editor.range();
    if (!source || !range) return;
    editor.change("Add Note", [&, id = source->id](Project& project) {
        auto& notes = project.transcripts[id].notes.edit();
        const auto after = std::upper_bound(notes.begin(), notes.end(), range->from,
                                            [](double at, const Note& note) { return at < note.start; });
        notes.insert(after, {.start = range->from, .end = range->to, .text = text});
    });
}

CommandList table() {
    const auto holds = [](const Editor& editor) { return heldSource(editor) != nullptr; };
    return {
        row<>("dropClipMark", "Add Clip Mark", {}, dropClipMark).when(holds),
        row<>("dropBookmark", "Add Bookmark", {}, dropBookmark).when(holds),
        row<Kind::BookmarkTag>("removeBookmark", "Remove Bookmark", {"bookmark"}, removeBookmark),
        row<Kind::Text>("addNote", "Add Note", {"text"}, addNote).when([](const Editor& editor) {
            return heldSource(editor) && editor.range();
        }),
    };
}

}
