#include "app/desktop/Actions.h"

#include "app/editor/commands/CommandRun.h"
#include "platform/base/RawText.h"

#include <QKeySequence>
#include <algorithm>

namespace murbo::Actions {
namespace {

Action verb(const char* id, const char* menu, const char* title, const char* keys = "") {
    return {id, menu, title, keys, "", {}, false};
}
Action line(const char* id, const char* menu, const char* text, const char* keys = "",
            const char* title = "") {
    return {id, menu, title, keys, text, {}, false};
}
Action text(Action action) {
    action.textToo = true;
    return action;
}
Action key(Command command, const char* menu) {
    return {"key." + std::string(rawText(command)),
            menu,
            std::string(Keys::title(command)),
            "",
            "",
            command,
            false};
}

std::vector<Action> made() {
    return {
        verb("newProject", "File", "New Project…", "Ctrl+Shift+N"),
        verb("openProject", "File", "Open…", "Ctrl+O"),
        verb("sheet.saveAs", "File", "Save As…", "Ctrl+Shift+S"),
        verb("sheet.duplicate", "File", "Duplicate Project…"),
        verb("sheet.addFiles", "File", "Add Footage…", "Ctrl+I"),
        verb("sheet.addStream", "File", "Add Stream…", "Ctrl+Shift+I"),
        verb("sheet.newVideo", "File", "New Video…", "Ctrl+N"),
        verb("sheet.export", "File", "Export…", "Ctrl+E"),
        verb("sheet.findMissing", "File", "Find Missing Footage…"),
        verb("sheet.settings", "File", "Settings…", "Ctrl+,"),
        verb("sheet.keys", "File", "Keys…"),
        verb("closeWindow", "File", "Close Project", "Ctrl+W"),

        text(line("undo", "Edit", R"(["undo"])", "Ctrl+Z")),
        text(line("redo", "Edit", R"(["redo"])", "Ctrl+Shift+Z")),
        line("split", "Edit", R"(["splitAtPlayhead"])", "Ctrl+B"),
        line("splitAll", "Edit", R"(["bladeAll"])", "Ctrl+Shift+B", "Split All at Playhead"),
        verb("trimStart", "Edit", "Trim Start to Playhead", "Alt+["),
        verb("trimEnd", "Edit", "Trim End to Playhead", "Alt+]"),
        key(Command::remove, "Edit"),
        verb("takeOutQuiet", "Edit", "Take Out Quiet Stretches"),
        verb("muteCuts", "Edit", "Mute or Unmute Clips"),
        line("clear", "Edit", R"(["clear"])"),
        line("copyPicks", "Edit", R"(["copyPicks"])"),
        verb("sheet.history", "Edit", "History…", "Ctrl+Alt+Z"),
        text(verb("walk.next", "Pick", "Pick Next Block", "Ctrl+Right")),
        text(verb("walk.previous", "Pick", "Pick Previous Block", "Ctrl+Left")),
        text(verb("walk.above", "Pick", "Pick in the Row Above", "Ctrl+Up")),
        text(verb("walk.below", "Pick", "Pick in the Row Below", "Ctrl+Down")),
        text(verb("walk.first", "Pick", "Pick First Block", "Ctrl+Home")),
        text(verb("walk.last", "Pick", "Pick Last Block", "Ctrl+End")),
        text(verb("walk.next.more", "Pick", "Pick Next Block Too", "Ctrl+Shift+Right")),
        text(verb("walk.previous.more", "Pick", "Pick Previous Block Too", "Ctrl+Shift+Left")),
        verb("goToPick", "Pick", "Go to Picked Block"),
        verb("contextMenu", "Edit", "Menu of What Is Picked", "Shift+F10"),
        verb("palette", "Edit", "Commands…", "Ctrl+K"),
        verb("menus", "", "Menus", "F10"),

        verb("framing", "Clip", "Framing"),
        key(Command::markStart, "Clip"),
        key(Command::markEnd, "Clip"),
        key(Command::markClip, "Clip"),
        key(Command::addToEnd, "Clip"),
        key(Command::insert, "Clip"),
        line("newVideoFromSelection", "Clip", R"(["newVideoFromSelection"])"),
        key(Command::favourite, "Clip"),
        verb("reject", "Clip", "Reject"),
        key(Command::clearRating, "Clip"),
        key(Command::clipMark, "Clip"),
        verb("hold", "Clip", "Hold"),
        verb("sheet.renameClip", "Clip", "Rename Clip…"),
        verb("copyTag", "Clip", "Copy Tag"),
        key(Command::bookmark, "Clip"),
        verb("showInFolder", "Clip", "Show Footage in Folder"),
        verb("transcribe", "Clip", "Transcribe"),
        verb("transcript.note", "Clip", "Add Note…"),
        verb("transcript.correctEverywhere", "Clip", "Correct Everywhere"),

        verb("renameVideo", "Video", "Rename Video…"),
        verb("duplicateVideo", "Video", "Duplicate Video", "Ctrl+D"),
        verb("deleteVideo", "Video", "Delete Video"),
        line("aspect.vertical", "Video", R"(["setAspect","9:16"])", "", "Aspect 9:16"),
        line("aspect.horizontal", "Video", R"(["setAspect","16:9"])", "", "Aspect 16:9"),
        line("aspect.square", "Video", R"(["setAspect","1:1"])", "", "Aspect 1:1"),
        line("aspect.portrait", "Video", R"(["setAspect","4:5"])", "", "Aspect 4:5"),

        key(Command::cutSplit, "Look"),
        key(Command::cutContent, "Look"),
        key(Command::cutFace, "Look"),
        key(Command::punch, "Look"),
        verb("caption.edit", "Look", "Edit Caption"),
        verb("caption.break", "Look", "Break Caption…"),
        verb("caption.join", "Look", "Join Caption"),
        verb("caption.big", "Look", "Big Caption"),
        verb("caption.hide", "Look", "Hide Caption"),
        verb("caption.resetTiming", "Look", "Reset Caption Timing"),

        verb("library.add", "Library", "Add to the Video"),
        verb("library.listen", "Library", "Listen or Stop"),
        verb("library.show", "Library", "Show in Folder"),
        verb("sheet.bringIn", "Library", "Add Playbook…"),
        verb("sheet.renamePreset", "Library", "Rename Caption Style…"),
        verb("preset.remove", "Library", "Remove Caption Style"),

        key(Command::play, "View"),
        key(Command::backward, "View"),
        key(Command::stop, "View"),
        key(Command::forward, "View"),
        key(Command::select, "View"),
        key(Command::trim, "View"),
        key(Command::blade, "View"),
        key(Command::hand, "View"),
        key(Command::skimming, "View"),
        key(Command::snapping, "View"),
        verb("zoomIn", "View", "Zoom In", "Ctrl+="),
        verb("zoomOut", "View", "Zoom Out", "Ctrl+-"),
        verb("zoomFit", "View", "Fit the Timeline", "Shift+Z"),
        verb("inspector", "View", "Show or Hide the Inspector", "Ctrl+Alt+I"),
        verb("tab.inspector", "View", "Inspector", "Ctrl+1"),
        verb("tab.transcript", "View", "Transcript", "Ctrl+2"),
        verb("tab.captions", "View", "Captions", "Ctrl+3"),
        verb("tall", "View", "Tall Viewer"),
        verb("fullViewer", "View", "Full-Screen Viewer", "Ctrl+Shift+F"),
        verb("safeAreas", "View", "Show or Hide Safe Areas"),
        verb("droppedFrames", "View", "Show or Hide Dropped Frames"),

        verb("nextRegion", "Go", "Next Region", "F6"),
        verb("previousRegion", "Go", "Previous Region", "Shift+F6"),
        verb("search", "Go", "Search the Browser", "Ctrl+F"),
        verb("transcript.search", "Go", "Search the Transcript", "Ctrl+Alt+F"),
        verb("go.videos", "Go", "Go to Videos"),
        verb("go.sources", "Go", "Go to Sources"),
        verb("go.clips", "Go", "Go to Clips"),
        verb("go.favourites", "Go", "Go to Favourites"),
        verb("go.bookmarks", "Go", "Go to Bookmarks"),
        verb("go.missing", "Go", "Go to Missing Footage"),
        verb("go.layouts", "Go", "Go to Layouts"),
        verb("go.generators", "Go", "Go to Generators"),
        verb("go.playbooks", "Go", "Go to Playbooks"),
        verb("go.sounds", "Go", "Go to Sounds"),
        verb("go.music", "Go", "Go to Music"),
        verb("transcript.copy", "Edit", "Copy Words"),
    };
}

}

std::span<const Action> all() {
    static const auto list = made();
    return list;
}

const Action* find(const std::string& id) {
    const auto list = all();
    const auto found = std::ranges::find(list, id, &Action::id);
    return found == list.end() ? nullptr : &*found;
}

const Action* byKeys(QKeyCombination pressed) {
    for (const auto& action : all()) {
        if (action.keys.empty()) continue;
        const auto wanted = QKeySequence(QString::fromStdString(action.keys));
        if (wanted.count() == 1 && wanted[0] == pressed) return &action;
    }
    return nullptr;
}

std::vector<std::string> menus() {
    std::vector<std::string> names;
    for (const auto& action : all())
        if (!action.menu.empty() && std::ranges::find(names, action.menu) == names.end())
            names.push_back(action.menu);
    return names;
}

std::string title(const Action& action) {
    return action.title.empty() ? CommandRun::title(action.line) : action.title;
}

std::string keys(const Action& action) {
    if (!action.command) return action.keys;
    const auto key = Keys::standard().key(*action.command);
    if (key == "space") return "Space";
    if (key == "delete") return "Delete";
    return QString::fromStdString(key).toUpper().toStdString();
}

}
