#include "app/desktop/footage/StreamSheet.h"

#include "app/desktop/footage/FootageRow.h"
#include "app/desktop/footage/RecordingStills.h"
#include "app/desktop/services/PlatformWords.h"
#include "app/editor/Editor.h"
#include "app/editor/Timecode.h"
#include "app/editor/commands/IntakeCommands.h"
#include "core/intake/Markers.h"
#include "core/intake/transcription/Whisper.h"
#include "platform/base/Text.h"
#include "platform/store/SettingsStore.h"

#include <QRegularExpression>
#include <algorithm>
#include <cmath>

namespace murbo {
namespace {

namespace fs = std::filesystem;

constexpr int stillCount = 7;
constexpr qsizetype maxDrawn = 3000; ///< marks: more are one line anyway

bool isMarkers(const fs::path& file) {
    const auto ending = Text::lowercased(file.extension().string());
    return ending == ".csv" || ending == ".txt" || ending == ".tsv";
}

QString nameOf(const fs::path& file) {
    return QString::fromStdString(Text::repaired(file.filename().string()));
}

/// One time a line, as a markers file has them.
std::string asLines(const QString& typed) {
    static const QRegularExpression gaps("[\\s,;]+");
    return typed.split(gaps, Qt::SkipEmptyParts).join("\n").toStdString();
}

/// A clip for those who do not see where it is drawn: "C04, 0:10.00 to 3:40.00".
QString wordsOf(const Clip& clip) {
    return QString::fromStdString(clip.tag() + ", " + Timecode::fine(clip.start) + " to " +
                                  Timecode::fine(clip.end));
}

QString counted(qsizetype count, const char* one, const char* many) {
    return QString::number(count) + " " + (count == 1 ? one : many);
}

}

StreamSheet::StreamSheet(Editor& session, QObject* parent) : QObject(parent), editor(session) {}

StreamSheet::~StreamSheet() {
    background.finish();
}

QString StreamSheet::recording() const {
    return nameOf(path);
}

QString StreamSheet::facts() const {
    if (!file) return path.empty() || !fault.isEmpty() ? "" : "Reading…";
    return QString::fromStdString(Timecode::clock(file->length)) + " · " + about;
}

QVariantList StreamSheet::stills() const {
    QVariantList list;
    for (int at = 0; file && at < stillCount; ++at) {
        const auto second = std::floor(file->length * (at + 0.5) / stillCount);
        list.append(RecordingStills::address(path) + "/" + QString::number(second, 'f', 0));
    }
    return list;
}

QString StreamSheet::problem() const {
    return fault;
}

QString StreamSheet::whisper() const {
    return PlatformWords::shown(Whisper::missing().value_or(""));
}

QString StreamSheet::markersWords() const {
    const auto count = static_cast<qsizetype>(markCount);
    if (!typedTimes.trimmed().isEmpty()) return counted(count, "marker typed", "markers typed");
    if (!markersName) return "No markers file beside it: drop one here, or type the times";
    return counted(count, "marker", "markers") + " from " + QString::fromStdString(*markersName);
}

QString StreamSheet::clipWords() const {
    if (shownClips.isEmpty()) return "No clips come of it: mark them later with M";
    const auto first = shownClips.first().toMap()["tag"].toString();
    const auto last = shownClips.last().toMap()["tag"].toString();
    const auto tags = first == last ? first : first + " to " + last;
    return counted(shownClips.size(), "clip", "clips") + ", " + tags +
           ", from 2:30 before to 1:00 after each marker";
}

void StreamSheet::clear() {
    ++turn;
    path.clear();
    file.reset();
    about.clear();
    fault.clear();
    markersName.reset();
    markers.reset();
    typedTimes.clear();
    note.clear();
    emit recordingChanged();
    transcribe = SettingsStore::standard().boolean("transcribeOnAdd").value_or(true);
    workOut();
}

bool StreamSheet::isStream(const QStringList& paths) {
    std::vector<fs::path> movies;
    bool marked = false;
    for (const auto& given : paths) {
        const fs::path one(given.toStdString());
        std::error_code error;
        if (Intake::isMovie(one) && !fs::is_directory(one, error))
            movies.push_back(one);
        else if (isMarkers(one))
            marked = true;
        else
            return false;
    }
    return movies.size() == 1 && (marked || Markers::find(movies.front()));
}

void StreamSheet::take(const QStringList& paths) {
    fault.clear();
    for (const auto& given : paths) {
        const fs::path one(given.toStdString());
        if (Intake::isMovie(one))
            takeRecording(one);
        else if (!isMarkers(one))
            fault = "“" + nameOf(one) + "” is neither a recording nor a list of markers";
    }
    // Markers that are handed over count for more than those beside the recording.
    for (const auto& given : paths)
        if (const fs::path one(given.toStdString()); isMarkers(one)) takeMarkers(one);
    workOut();
}

void StreamSheet::takeRecording(const fs::path& given) {
    path = given;
    file.reset();
    if (const auto beside = Markers::find(given)) takeMarkers(*beside);
    auto row = std::make_shared<FootageRow>(FootageRow::of(given));
    background.start([row] { row->look(); },
                     [this, row, mine = ++turn] {
                         if (mine != turn) return;
                         about = row->detail;
                         if (!row->problem.isEmpty()) fault = row->problem;
                         if (row->canComeIn()) file = MeasuredFile{row->path, row->length};
                         emit recordingChanged();
                         workOut();
                     });
}

void StreamSheet::takeMarkers(const fs::path& given) {
    auto text = Markers::text(given);
    if (!text) {
        fault = "“" + nameOf(given) + "” could not be read as a list of markers";
        return;
    }
    markersName = Text::repaired(given.filename().string());
    markers = std::move(text);
    typedTimes.clear();
}

void StreamSheet::setTyped(const QString& times) {
    if (times == typedTimes) return;
    typedTimes = times;
    workOut();
}

Sources::StreamNotes StreamSheet::notes() const {
    Sources::StreamNotes notes;
    if (!typedTimes.trimmed().isEmpty()) {
        notes.markers = asLines(typedTimes);
    } else {
        notes.markersName = markersName;
        notes.markers = markers;
    }
    if (!note.trimmed().isEmpty()) notes.note = note.trimmed().toStdString();
    return notes;
}

/// Adds it to a copy of the project: the clips are those that will be made, with their numbers.
void StreamSheet::workOut() {
    shownClips.clear();
    shownMarks.clear();
    const auto given = notes();
    const auto times = Markers::parse(given.markers.value_or(""), path.filename().string());
    markCount = times.size();
    if (file) {
        auto project = editor.project();
        const auto source = Sources::addStream(project, *file, given);
        for (const auto& clip : project.clips)
            if (clip.source == source)
                shownClips.append(QVariantMap{{"tag", QString::fromStdString(clip.tag())},
                                              {"words", wordsOf(clip)},
                                              {"from", clip.start / file->length},
                                              {"to", clip.end / file->length}});
        for (const double time : times)
            if (time >= 0 && time <= file->length && shownMarks.size() < maxDrawn)
                shownMarks.append(time / file->length);
    }
    emit changed();
}

void StreamSheet::add() {
    if (file) IntakeCommands::addStream(editor, *file, notes(), {transcribe, false});
}

}
