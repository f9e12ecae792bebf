#include "app/desktop/exports/ExportSheet.h"

#include "app/desktop/exports/ExportQueue.h"
#include "app/desktop/services/Clipboard.h"
#include "app/desktop/services/FolderView.h"
#include "app/editor/Editor.h"
#include "app/editor/Timecode.h"
#include "core/model/Settings.h"
#include "core/render/plan/Plan.h"
#include "platform/base/Problem.h"
#include "platform/store/SettingsStore.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <algorithm>

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

ExportSheet::ExportSheet(Editor& session, ExportQueue& queue, QObject* parent)
    : QObject(parent), editor(session), exports(queue) {
    connect(&exports, &ExportQueue::changed, this, &ExportSheet::changed);
}

bool ExportSheet::underWay() const {
    const auto* video = editor.video();
    return video && exports.holds(video->id);
}

QStringList ExportSheet::videos() const {
    QStringList names;
    for (const auto& video : editor.project().videos)
        names.append(QString::fromStdString(video.tag() + " · " + video.title));
    return names;
}

int ExportSheet::video() const {
    const auto& videos = editor.project().videos;
    const auto found =
        std::ranges::find_if(videos, [this](const Video& video) { return editor.openVideo() == video.id; });
    return found == videos.end() ? -1 : static_cast<int>(found - videos.begin());
}

void ExportSheet::choose(int row) {
    const auto& videos = editor.project().videos;
    if (row < 0 || row >= static_cast<int>(videos.size()) || row == video()) return;
    const auto id = videos[static_cast<std::size_t>(row)].id;
    editor.openOnTimeline(id);
    fill();
}

/// The name itself, or with a number where a movie of that name is on its way.
QString ExportSheet::freeName(const QString& name) const {
    auto given = name;
    for (int number = 2; exports.makes(QDir(folder).filePath(given)); ++number)
        given = QString("%1 %2.mp4").arg(name.chopped(4)).arg(number);
    return given;
}

void ExportSheet::fill() {
    const auto& settings = SettingsStore::standard();
    const auto movies = QStandardPaths::writableLocation(QStandardPaths::MoviesLocation);
    folder = QString::fromStdString(settings.text(folderKey).value_or(movies.toStdString()));
    if (folder.startsWith("file://")) folder = folder.mid(7);
    fileName = freeName(fileNameOf(editor.video() ? QString::fromStdString(editor.video()->title) : ""));
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
    if (!editor.video()) return "Open a video first";
    if (editor.video()->cuts.empty()) return "This video has no cuts yet";
    if (fileName.trimmed().isEmpty()) return "Give the movie a name";
    if (fileName.contains('/')) return "A file's name can't hold a slash";
    if (exports.makes(path())) return "A movie of that name is on its way: give this one another";
    return "";
}

QString ExportSheet::facts() const {
    const auto* video = editor.video();
    if (!video) return "";
    const auto size = Plan::frameSize(video->aspect);
    const auto frames =
        rate > 0 ? QString::number(rate) : QString::number(std::lround(editor.playback.frameRate()));
    return QString("%1 × %2 · %3 fps · %4")
        .arg(size.width)
        .arg(size.height)
        .arg(frames, QString::fromStdString(Timecode::clock(video->length())));
}

QString ExportSheet::mutedWords() const {
    const auto* video = editor.video();
    if (!video || !video->look || !video->look->mix) return "";
    QStringList names;
    for (const auto lane : allLanes)
        if (video->look->mix->isMuted(lane)) names.append(rowName(lane));
    return names.isEmpty() ? "" : "Rows muted on the timeline's headers: " + names.join(", ");
}

void ExportSheet::play(const QString& path) {
    if (!FolderView::play(path)) editor.say("No program here plays " + path.toStdString());
}

void ExportSheet::copy(const QString& path) {
    Clipboard::put(path);
    editor.say("Copied " + path.toStdString());
}

void ExportSheet::start() {
    if (!problem().isEmpty()) return;
    keep(folderKey, folder.toStdString());
    keep(subtitlesKey, subtitles);
    QDir().mkpath(folder);
    ExportQueue::MovieJob job{*editor.video(), editor.project(), {}};
    job.order.to = path().toStdString();
    job.order.missing = editor.missing();
    job.order.fonts = Settings::captionFonts();
    job.order.package = editor.package();
    if (rate > 0) job.order.frameRate = rate;
    job.order.subtitles = subtitles;
    job.order.includingMutedRows = mutedRows;
    job.order.includingMutedBlocks = mutedBlocks;
    exports.add(std::move(job));
    emit changed();
}

}
