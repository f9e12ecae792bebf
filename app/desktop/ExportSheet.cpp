#include "app/desktop/ExportSheet.h"

#include "app/desktop/Clipboard.h"
#include "app/desktop/OpenProject.h"
#include "core/model/Settings.h"
#include "core/render/plan/Plan.h"
#include "platform/base/Problem.h"
#include "platform/store/SettingsStore.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace murbo {
namespace {

constexpr const char* folderKey = "exportFolder";
constexpr const char* subtitlesKey = "exportSubtitles";

/// A title as a file's name: what a path or another system could not hold becomes a dash.
QString fileNameOf(const QString& title) {
    auto name = title.trimmed();
    for (const auto letter : QString("/\\:*?\"<>|")) name.replace(letter, '-');
    while (name.startsWith('.')) name.remove(0, 1);
    return (name.isEmpty() ? QString("Video") : name.left(120)) + ".mp4";
}

const char* rowName(Lane lane) {
    static constexpr const char* names[] = {"Video", "Overlays", "Sounds", "Music"};
    return names[static_cast<int>(lane)];
}

void keep(const char* key, const auto& value) {
    try {
        SettingsStore::standard().set(key, value);
    } catch (const Problem&) {
        return; // the next export asks anew
    }
}

}

ExportSheet::ExportSheet(OpenProject& open, QObject* parent) : QObject(parent), project(open) {}

void ExportSheet::fill() {
    const auto& settings = SettingsStore::standard();
    const auto movies = QStandardPaths::writableLocation(QStandardPaths::MoviesLocation);
    folder = QString::fromStdString(settings.text(folderKey).value_or(movies.toStdString()));
    if (folder.startsWith("file://")) folder = folder.mid(7);
    fileName = fileNameOf(project.videoTitle());
    subtitles = settings.boolean(subtitlesKey).value_or(false);
    rate = 0;
    mutedRows = mutedBlocks = false;
    emit changed();
}

QString ExportSheet::path() const {
    const auto name = fileName.trimmed();
    return QDir(folder).filePath(name.endsWith(".mp4", Qt::CaseInsensitive) ? name : name + ".mp4");
}

bool ExportSheet::replaces() const {
    return QFileInfo::exists(path());
}

QString ExportSheet::problem() const {
    if (!project.editor().video()) return "Open a video first";
    if (project.cuts() == 0) return "This video has no cuts yet";
    if (fileName.trimmed().isEmpty()) return "Give the movie a name";
    if (fileName.contains('/')) return "A file's name can't hold a slash";
    return "";
}

QString ExportSheet::facts() const {
    const auto* video = project.editor().video();
    if (!video) return "";
    const auto size = Plan::frameSize(video->aspect);
    const auto frames = rate > 0 ? QString::number(rate)
                                 : QString::number(std::lround(project.editor().playback.frameRate()));
    return QString("%1 × %2 · %3 fps · %4")
        .arg(size.width)
        .arg(size.height)
        .arg(frames, project.clock(project.videoLength()));
}

QString ExportSheet::mutedWords() const {
    const auto* video = project.editor().video();
    if (!video || !video->look || !video->look->mix) return "";
    QStringList names;
    for (const auto lane : allLanes)
        if (video->look->mix->isMuted(lane)) names.append(rowName(lane));
    return names.isEmpty() ? "" : "Rows muted on the timeline's headers: " + names.join(", ");
}

void ExportSheet::copy(const QString& path) {
    Clipboard::put(path);
    project.editor().say("Copied " + path.toStdString());
}

void ExportSheet::start() {
    if (!problem().isEmpty()) return;
    keep(folderKey, folder.toStdString());
    keep(subtitlesKey, subtitles);
    QDir().mkpath(folder);
    auto& editor = project.editor();
    ExportQueue::MovieJob job{*editor.video(), editor.project(), {}};
    job.order.to = path().toStdString();
    job.order.missing = editor.missing();
    job.order.fonts = Settings::captionFonts();
    job.order.package = editor.package();
    if (rate > 0) job.order.frameRate = rate;
    job.order.subtitles = subtitles;
    job.order.includingMutedRows = mutedRows;
    job.order.includingMutedBlocks = mutedBlocks;
    project.exports()->add(std::move(job));
    emit changed();
}

}
