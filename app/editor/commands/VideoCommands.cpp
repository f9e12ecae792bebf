#include "app/editor/commands/VideoCommands.h"

#include "app/editor/commands/Changes.h"
#include "app/editor/commands/Row.h"
#include "core/model/edits/ProjectOperations.h"
#include "platform/base/Problem.h"
#include "platform/store/SettingsStore.h"

namespace murbo::VideoCommands {
namespace {

constexpr const char* aspectKey = "lastAspect";

void keepAspect(Video::Aspect aspect) {
    if (SettingsStore::standard().text(aspectKey) == rawText(aspect)) return;
    try {
        SettingsStore::standard().set(aspectKey, std::string(rawText(aspect)));
    } catch (const Problem&) {
        return; // the next new video begins with another shape
    }
}

}

Video::Aspect lastAspect() {
    const auto kept = SettingsStore::standard().text(aspectKey);
    return kept ? fromRawText<Video::Aspect>(*kept).value_or(Video::Aspect::vertical)
                : Video::Aspect::vertical;
}

void create(Editor& editor, Video::Aspect aspect, const std::string& title) {
    keepAspect(aspect);
    UUID made;
    editor.change("New Video",
                  [&](Project& project) { made = ProjectOperations::newVideo(project, title, aspect).id; });
    editor.openOnTimeline(made);
    editor.setSidebar({Collection::videos, {}});
}

void rename(Editor& editor, const UUID& id, const std::string& to) {
    editor.change("Rename Video", [&](Project& project) {
        if (auto* video = Changes::video(project, id)) video->title = to;
    });
}

void setAspect(Editor& editor, Video::Aspect aspect) {
    if (!editor.video()) return;
    keepAspect(aspect);
    editor.change("Change Aspect",
                  [&](Project& project) { Changes::openVideo(editor, project).aspect = aspect; });
}

void duplicate(Editor& editor, const UUID& id) {
    std::optional<Video> copy;
    editor.change("Duplicate Video",
                  [&](Project& project) { copy = ProjectOperations::duplicate(project, id); });
    if (copy) editor.openOnTimeline(copy->id);
}

void remove(Editor& editor, const UUID& id) {
    const auto* video = editor.video(id);
    if (!video) return;
    const auto title = video->title;
    const bool wasOpen = editor.openVideo() == id;
    editor.change("Delete Video", [&](Project& project) {
        std::erase_if(project.videos.edit(), [&](const Video& one) { return one.id == id; });
    });
    if (wasOpen) { // the first video has taken its place on the timeline
        editor.setMorePicked({});
        editor.setPicked(std::nullopt);
    }
    editor.say("Deleted " + title + ". Undo brings it back");
}

CommandList table() {
    const auto hasVideo = [](const Editor& editor) { return editor.video() != nullptr; };
    return {
        row<Kind::OneOf<murbo::Video::Aspect>, Kind::Text>("newVideo", "New Video", {"aspect", "named"},
                                                           create),
        row<Kind::VideoTag, Kind::Text>("rename", "Rename Video", {"video", "to"}, rename),
        row<Kind::OneOf<murbo::Video::Aspect>>("setAspect", "Change Aspect", {"aspect"}, setAspect)
            .when(hasVideo),
        row<Kind::VideoTag>("duplicate", "Duplicate Video", {"video"}, duplicate),
        row<Kind::VideoTag>("delete", "Delete Video", {"video"}, remove),
    };
}

}
