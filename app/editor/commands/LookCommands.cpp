#include "app/editor/commands/LookCommands.h"

#include "app/editor/commands/Changes.h"
#include "app/editor/commands/Reading.h"
#include "app/editor/commands/Row.h"
#include "core/model/VideoTime.h"
#include "platform/base/Files.h"
#include "platform/base/Problem.h"
#include "platform/base/Text.h"

#include <fstream>

namespace murbo::LookCommands {
namespace {

namespace fs = std::filesystem;

void apply(const Editor& editor, Project& project, const LookChange& change) {
    auto& video = Changes::openVideo(editor, project);
    if (!video.look) video.look.emplace();
    change(*video.look);
}

bool sameBytes(const fs::path& one, const fs::path& other) {
    std::error_code error;
    if (fs::file_size(one, error) != fs::file_size(other, error) || error) return false;
    std::ifstream first(one, std::ios::binary);
    std::ifstream second(other, std::ios::binary);
    constexpr std::size_t piece = 1 << 16;
    std::string here(piece, 0);
    std::string there(piece, 0);
    while (first && second) {
        first.read(here.data(), piece);
        second.read(there.data(), piece);
        const auto read = static_cast<std::size_t>(first.gcount());
        if (first.gcount() != second.gcount() || here.compare(0, read, there, 0, read) != 0) return false;
    }
    return true;
}

/// The first of the names that is free or holds the same.
fs::path nameFor(const fs::path& file, const fs::path& folder) {
    auto place = folder / file.filename();
    for (int number = 2; fs::exists(fs::symlink_status(place)) && !sameBytes(place, file); ++number)
        place = folder / (file.stem().string() + " " + std::to_string(number) + file.extension().string());
    return place;
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
    if (!Text::isUtf8(file.string())) return {};
    if (!editor.package()) return file.string();
    try {
        if (!fs::is_regular_file(file)) return {};
        const auto place = nameFor(file, *editor.package() / "media" / folder);
        if (!fs::exists(place)) Files::copy(file, place);
        return "media/" + folder + "/" + place.filename().string();
    } catch (const std::exception&) {
        return {};
    }
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
                  return "{\"source\":\"" + moment->source.text() + "\",\"at\":" + Reading::of(moment->at) +
                         "}";
              }),
        row<Kind::File, Kind::Text>("keepMedia", "Keep a File in the Project", {"file", "in"},
                                    [](Editor& editor, const fs::path& file, const std::string& folder) {
                                        if (folder != fs::path(folder).filename() || folder.starts_with("."))
                                            throw Problem(
                                                "“in” is not right: the name of a folder is expected.");
                                        return Reading::of(keepMedia(editor, file, folder));
                                    }),
        row<Kind::SourceName, Kind::Fields<Framing>>("dragFraming", "Drag Content or Face",
                                                     {"source", "change"}, dragFraming),
    };
}

}
