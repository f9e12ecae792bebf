#include "app/desktop/models/MediaArrivals.h"

#include "app/editor/Editor.h"
#include "app/editor/KeptMedia.h"
#include "app/editor/commands/LookCommands.h"
#include "app/editor/commands/OverlayCommands.h"
#include "app/editor/commands/SoundCommands.h"

namespace murbo {
namespace {

using KeptPaths = std::vector<std::optional<std::string>>; ///< as a look names them

/// Where in the project's media it is kept.
std::string folderOf(ArrivingFile::ArrivalKind kind) {
    switch (kind) {
        case ArrivingFile::ArrivalKind::overlay:
            return "pictures";
        case ArrivingFile::ArrivalKind::sound:
            return "sounds";
        case ArrivingFile::ArrivalKind::song:
            return "music";
    }
    return "";
}

}

MediaArrivals::MediaArrivals(Editor& session) : editor(session) {}

MediaArrivals::~MediaArrivals() {
    finish();
}

void MediaArrivals::take(std::vector<ArrivingFile> files) {
    if (files.empty() || !LookCommands::momentOrRefused(editor, files.front().time)) return;
    for (auto& file : files) file.time = file.time.value_or(editor.playback.time());
    const auto kept = std::make_shared<KeptPaths>();
    const auto work = [kept, files, package = editor.package()] {
        for (const auto& file : files)
            kept->push_back(KeptMedia::keep(file.file, folderOf(file.kind), package));
    };
    const auto then = [this, kept, files, video = editor.openVideo(), busy = editor.busy()] {
        if (editor.openVideo() != video) return editor.refuse("Another video was opened meanwhile");
        for (std::size_t at = 0; at < files.size(); ++at) {
            const auto& place = kept->at(at);
            if (!place)
                editor.refuse(KeptMedia::failure(files[at].file));
            else
                lay(files[at], editor.package().value_or("") / *place);
        }
    };
    copying.start(work, then);
}

void MediaArrivals::lay(const ArrivingFile& file, const std::filesystem::path& kept) {
    if (file.kind != ArrivingFile::ArrivalKind::overlay)
        return SoundCommands::addSound(editor, kept, file.folder,
                                       file.kind == ArrivingFile::ArrivalKind::song, file.time);
    editor.playback.seek(*file.time);
    OverlayCommands::addMedia(editor, kept, file.time);
}

}
