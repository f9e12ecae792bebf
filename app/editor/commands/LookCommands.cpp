#include "app/editor/commands/LookCommands.h"

#include "app/editor/KeptMedia.h"
#include "app/editor/commands/Changes.h"
#include "app/editor/commands/OneLineJson.h"
#include "app/editor/commands/Row.h"
#include "core/model/VideoTime.h"
#include "platform/base/Problem.h"

namespace murbo::LookCommands {
namespace {

namespace fs = std::filesystem;

void apply(const Editor& editor, Project& project, const LookChange& change) {
    auto& video = Changes::openVideo(editor, project);
    if (!video.look) video.look.emplace();
    change(*video.look);
}

}

void changeLook(Editor& editor, const std::string& name, const LookChange& change) {
    if (editor.video()) editor.change(name, [&](Project& project) { apply(editor, project, change); });
}

void dragLook(Editor& editor, const LookChange& change) {
    if (editor.video()) editor.dragAndRedraw([&](Project& project) { apply(editor, project, change); });
}

std::optional<SourceMoment> momentAt(const Editor& editor, std::optional<double> time) {
    const auto* video = editor.video();
    const auto place =
        video ? VideoTime::locate(time.value_or(editor.playback.time()), video->cuts) : std::nullopt;
    if (!place) return {};
    return SourceMoment{video->cuts[place->cut].source, place->at};
}

std::optional<SourceMoment> momentOrRefused(Editor& editor, std::optional<double> time) {
    auto moment = momentAt(editor, time);
    if (!moment) editor.refuse("Open a video with cuts first");
    return moment;
}

std::optional<std::string> keepMedia(const Editor& editor, const fs::path& file, const std::string& folder) {
    return KeptMedia::keep(file, folder, editor.package());
}

void dragFraming(Editor& editor, const UUID& source, const std::function<void(Framing&)>& change) {
    editor.dragAndRedraw([&](Project& project) {
        for (auto& one : project.sources.edit()) {
            if (one.id != source) continue;
            if (!one.framing) one.framing.emplace();
            change(*one.framing);
        }
    });
}

CommandList table() {
    const auto hasVideo = [](const Editor& editor) { return editor.video() != nullptr; };
    return {
        row<Kind::Text, Kind::Fields<Look>>("changeLook", "Change Look", {"name", "change"}, changeLook)
            .when(hasVideo),
        row<Kind::Fields<Look>>("dragLook", "Drag a Control of the Look", {"change"}, dragLook)
            .when(hasVideo),
        row<>("playheadOnSource", "The Footage Under the Playhead", {},
              [](Editor& editor) -> std::optional<std::string> {
                  const auto moment = momentAt(editor);
                  if (!moment) return {};
                  return "{\"source\":\"" + moment->source.text() +
                         "\",\"at\":" + OneLineJson::of(moment->at) + "}";
              }),
        row<Kind::File, Kind::Text>("keepMedia", "Keep a File in the Project", {"file", "in"},
                                    [](Editor& editor, const fs::path& file, const std::string& folder) {
                                        if (folder != fs::path(folder).filename() || folder.starts_with("."))
                                            throw Problem(
                                                "“in” is not right: the name of a folder is expected.");
                                        return OneLineJson::of(keepMedia(editor, file, folder));
                                    }),
        row<Kind::SourceName, Kind::Fields<Framing>>("dragFraming", "Drag Content or Face",
                                                     {"source", "change"}, dragFraming),
    };
}

}
