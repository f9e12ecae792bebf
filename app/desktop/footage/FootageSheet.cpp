#include "app/desktop/footage/FootageSheet.h"

#include "app/desktop/services/PlatformWords.h"
#include "app/editor/Editor.h"
#include "app/editor/Timecode.h"
#include "app/editor/commands/IntakeCommands.h"
#include "core/intake/Intake.h"
#include "core/intake/transcription/Whisper.h"
#include "platform/base/Problem.h"
#include "platform/store/SettingsStore.h"

#include <algorithm>
#include <chrono>
#include <set>

namespace murbo {
namespace {

namespace fs = std::filesystem;

constexpr auto batchTime = std::chrono::milliseconds(150); ///< what is known by then is shown

constexpr std::size_t maxFiles = 20000;

/// The movies in what was handed over, and the files among it that are none.
std::vector<FootageRow> listed(const std::vector<fs::path>& given, std::vector<FootageRow> rows,
                               const std::stop_token& stop) {
    auto files = Intake::videos(given, stop, maxFiles);
    for (const auto& path : given) {
        if (stop.stop_requested()) break;
        std::error_code error;
        if (fs::is_regular_file(path, error) && !Intake::isMovie(path)) files.push_back(path);
    }
    std::set<fs::path> known;
    for (const auto& row : rows) known.insert(row.path);
    for (const auto& file : files)
        if (rows.size() < maxFiles && known.insert(file).second) rows.push_back(FootageRow::of(file));
    return rows;
}

std::vector<MeasuredFile> measured(const std::vector<FootageRow>& rows) {
    std::vector<MeasuredFile> files;
    for (const auto& row : rows)
        if (row.canComeIn()) files.push_back({row.path, row.length});
    return files;
}

QString groupOf(const std::vector<FootageRow>& rows) {
    std::vector<fs::path> paths;
    for (const auto& row : rows) paths.push_back(row.path);
    return QString::fromStdString(Intake::groupName(paths));
}

}

FootageSheet::FootageSheet(Editor& session, QObject* parent) : QObject(parent), editor(session) {}

FootageSheet::~FootageSheet() {
    stop();
    background.finish();
}

int FootageSheet::readable() const {
    return static_cast<int>(std::ranges::count_if(model.rows(), &FootageRow::canComeIn));
}

QString FootageSheet::only() const {
    return count() == 1 && model.rows()[0].canComeIn() ? QString::fromStdString(model.rows()[0].path.string())
                                                       : "";
}

QString FootageSheet::whisper() const {
    return PlatformWords::shown(Whisper::missing().value_or(""));
}

QString FootageSheet::words() const {
    if (count() == 0) return busy ? "Looking for movies…" : "";
    double length = 0;
    int looked = 0;
    int bad = 0;
    for (const auto& row : model.rows()) {
        length += row.length;
        looked += row.looked;
        bad += row.looked && !row.canComeIn();
    }
    auto text = count() == 1 ? QString("1 file") : QString("%1 files").arg(count());
    if (looked < count()) return text + QString(", %1 looked at").arg(looked);
    text += ", " + QString::fromStdString(Timecode::clock(length));
    if (bad > 0) text += QString(" · %1 can't come in").arg(bad);
    return text;
}

void FootageSheet::stop() {
    stopping.request_stop();
    stopping = {};
    ++turn;
    busy = false;
}

void FootageSheet::halt() {
    if (busy) stopping.request_stop();
}

void FootageSheet::clear() {
    stop();
    unlisted.clear();
    model.setRows({});
    group.clear();
    const auto& settings = SettingsStore::standard();
    transcribe = settings.boolean("transcribeOnAdd").value_or(true);
    describe = settings.boolean("describeOnAdd").value_or(false);
    emit changed();
}

void FootageSheet::take(const QStringList& paths) {
    for (const auto& path : paths) unlisted.emplace_back(path.toStdString());
    if (!unlisted.empty()) list();
}

/// All that was handed over since the last list was there: more may come while one is made.
void FootageSheet::list() {
    stop();
    busy = true;
    emit changed();
    auto found = std::make_shared<std::vector<FootageRow>>(model.rows());
    const auto work = [given = unlisted, found, token = stopping.get_token()] {
        *found = listed(given, std::move(*found), token);
    };
    background.start(work, [this, found, mine = turn] {
        if (mine != turn) return;
        unlisted.clear();
        stopping = {}; // what was found until then is looked at all the same
        if (group.isEmpty() && !found->empty()) group = groupOf(*found);
        model.setRows(std::move(*found));
        look();
    });
}

/// Looks at one file after the other, and hands on what is known by and by.
void FootageSheet::look() {
    const auto work = [this, rows = model.rows(), mine = turn, token = stopping.get_token()]() mutable {
        std::size_t first = 0;
        auto shown = std::chrono::steady_clock::now();
        for (std::size_t at = 0; at < rows.size() && !token.stop_requested(); ++at) {
            rows[at].look();
            const auto now = std::chrono::steady_clock::now();
            if (now - shown < batchTime && at + 1 < rows.size()) continue;
            std::vector batch(rows.begin() + static_cast<std::ptrdiff_t>(first),
                              rows.begin() + static_cast<std::ptrdiff_t>(at + 1));
            QMetaObject::invokeMethod(
                this,
                [this, mine, first, batch = std::move(batch)] {
                    if (mine != turn) return;
                    model.update(first, batch);
                    emit changed();
                },
                Qt::QueuedConnection);
            first = at + 1;
            shown = now;
        }
    };
    background.start(work, [this, mine = turn, token = stopping.get_token()] {
        if (mine != turn) return;
        busy = false;
        if (token.stop_requested()) model.removeUnlooked();
        emit changed();
    });
}

void FootageSheet::remove(int row) {
    const bool unfinished = busy;
    stop();
    model.remove(row);
    if (!unlisted.empty()) return list();
    busy = unfinished && count() > 0;
    emit changed();
    if (busy) look();
}

void FootageSheet::add() {
    const auto files = measured(model.rows());
    if (files.empty() || busy) return;
    try {
        SettingsStore::standard().set("transcribeOnAdd", transcribe);
        SettingsStore::standard().set("describeOnAdd", describe);
    } catch (const Problem&) {
        // The next time asks anew.
    }
    IntakeCommands::add(editor, files, group.trimmed().toStdString(), {transcribe, describe});
}

}
