#include "app/desktop/timeline/TimelineDrops.h"

#include "app/editor/Editor.h"
#include "app/editor/commands/CutCommands.h"
#include "core/model/edits/VideoEdits.h"
#include "platform/base/Text.h"

#include <algorithm>

namespace murbo::TimelineDrops {
namespace {

namespace fs = std::filesystem;

bool ends(const fs::path& file, std::initializer_list<std::string_view> endings) {
    const auto ending = Text::lowercased(file.extension().string());
    return std::ranges::find(endings, ending) != endings.end();
}

bool isSound(const fs::path& file) {
    return ends(file, {".wav", ".mp3", ".m4a", ".aac", ".flac", ".ogg", ".oga", ".opus", ".aif", ".aiff"});
}
bool isPicture(const fs::path& file) {
    return ends(file, {".png", ".jpg", ".jpeg", ".webp", ".gif", ".bmp", ".tif", ".tiff"});
}
bool isMovie(const fs::path& file) {
    return ends(file, {".mp4", ".mov", ".m4v", ".mkv", ".webm", ".avi", ".mts", ".ts"});
}

/// Times of the footage are asked for where a cut is: the end itself is none.
double within(const Editor& editor, double time) {
    const auto* video = editor.video();
    return std::clamp(time, 0.0, std::max(video ? video->length() - 0.01 : 0, 0.0));
}

std::int64_t place(const Editor& editor, double time) {
    return editor.video() ? static_cast<std::int64_t>(VideoEdits::place(*editor.video(), time)) : 0;
}

}

double seam(const Editor& editor, double time) {
    if (!editor.video()) return 0;
    const auto edits = VideoEdits::edits(*editor.video());
    const auto at = VideoEdits::place(*editor.video(), time);
    return at < edits.size() ? edits[at] : editor.video()->length();
}

std::optional<PartedRow::Landing> landing(const Editor& editor, double time) {
    if (!editor.video() || editor.video()->cuts.empty()) return {};
    double length = 0;
    for (const auto& cut : CutCommands::offeredCuts(editor)) length += cut.length();
    if (length <= 0) return {};
    return PartedRow::Landing{std::nullopt, VideoEdits::place(*editor.video(), time), length};
}

bool clips(Editor& editor, double time) {
    auto cuts = CutCommands::offeredCuts(editor);
    if (cuts.empty()) return false;
    CutCommands::drop(editor, std::move(cuts), place(editor, time));
    return true;
}

DroppedMedia files(const Editor& editor, const std::vector<fs::path>& given, double time,
                   std::optional<TimelineRow> row) {
    using ArrivalKind = ArrivingFile::ArrivalKind;
    const bool over = row == TimelineRow::layers || row == TimelineRow::overlays;
    const bool hasCuts = editor.video() && !editor.video()->cuts.empty();
    DroppedMedia sorted;
    for (const auto& file : given) {
        const bool laidOver = isPicture(file) || (over && isMovie(file));
        const auto sound = row == TimelineRow::music ? ArrivalKind::song : ArrivalKind::sound;
        if (hasCuts && (laidOver || isSound(file)))
            sorted.arriving.push_back(
                {file, laidOver ? ArrivalKind::overlay : sound, within(editor, time), ""});
        else
            sorted.left.push_back(file);
    }
    return sorted;
}

}
