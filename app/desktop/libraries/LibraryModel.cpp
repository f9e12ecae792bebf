#include "app/desktop/libraries/LibraryModel.h"

#include "app/desktop/libraries/LibraryRows.h"
#include "app/desktop/models/MediaArrivals.h"
#include "app/desktop/services/FolderView.h"
#include "app/editor/Editor.h"
#include "app/editor/commands/CutCommands.h"
#include "app/editor/commands/OverlayCommands.h"
#include "core/model/VideoTime.h"
#include "core/playbooks/Playbooks.h"
#include "core/render/sound/SoundMix.h"
#include "platform/base/Problem.h"

#include <QDir>
#include <algorithm>

namespace murbo {
namespace {

/// The place between the cuts that is nearest to a time.
std::int64_t seamAt(const Video& video, double time) {
    const auto starts = VideoTime::starts(video.cuts);
    std::int64_t seam = 0;
    for (std::size_t at = 0; at < starts.size(); ++at)
        if (time > starts[at] + video.cuts[at].length() / 2) seam = static_cast<std::int64_t>(at) + 1;
    return seam;
}

ArrivingFile::ArrivalKind kindOf(Collection page) {
    return page == Collection::music ? ArrivingFile::ArrivalKind::song : ArrivingFile::ArrivalKind::sound;
}

}

LibraryModel::LibraryModel(Editor& session, MediaArrivals& given, SoundPlayer::MakeOutput output,
                           QObject* parent)
    : Rows(parent), editor(session), arrivals(given), bookPictures(session), preview(std::move(output)) {
    connect(&editor, &Editor::sidebarChanged, this, &LibraryModel::turnPage);
    connect(&preview, &SoundPreview::changed, this, &LibraryModel::playingChanged);
    for (auto* viewer : {&editor.playback, &editor.source})
        connect(viewer, &Playback::rateChanged, &preview, [this, viewer] {
            if (viewer->rate() != 0) preview.stop();
        });
    turnPage();
}

LibraryModel::~LibraryModel() {
    stopping.request_stop();
    background.finish();
}

bool LibraryModel::shown() const {
    return LibraryRows::isLibrary(editor.sidebar().collection);
}

bool LibraryModel::ofSounds() const {
    return editor.sidebar().collection == Collection::sounds ||
           editor.sidebar().collection == Collection::music;
}

QString LibraryModel::folder() const {
    return QString::fromStdString(LibraryRows::folder(editor.sidebar().collection).string());
}

QString LibraryModel::emptyWords() const {
    if (rowCount() > 0 || !shown()) return "";
    if (reading) return "Reading…";
    if (!search.trimmed().isEmpty()) return "Nothing here is called that";
    if (editor.sidebar().collection == Collection::sounds)
        return "No sounds yet: put sound files, or folders of them, into";
    if (editor.sidebar().collection == Collection::music)
        return "No music yet: put songs, or folders of them, into";
    return "No playbooks yet: they lie in";
}

void LibraryModel::setWords(const QString& words) {
    if (words == search) return;
    search = words;
    show();
}

void LibraryModel::turnPage() {
    preview.stop();
    stopping.request_stop();
    all.clear();
    search.clear();
    assign({});
    ++turn;
    reading = false;
    if (shown()) {
        bookPictures.follow();
        return reload();
    }
    emit pageChanged();
    emit listed();
}

void LibraryModel::reload() {
    if (!shown()) return;
    reading = true;
    Playbooks::dropListing();
    auto rows = std::make_shared<std::vector<LibraryRow>>();
    const auto work = [rows, page = editor.sidebar().collection] { *rows = LibraryRows::of(page); };
    background.start(work, [this, rows, mine = ++turn] {
        if (mine != turn) return;
        reading = false;
        all = std::move(*rows);
        show();
        if (ofSounds()) measure();
    });
    emit pageChanged(); // the folder may be another one by now
    emit listed();
}

/// How long the sounds are takes opening them all: they are listed before that.
void LibraryModel::measure() {
    stopping.request_stop();
    stopping = {};
    auto rows = std::make_shared<std::vector<LibraryRow>>(all);
    const auto work = [rows, stop = stopping.get_token()] { LibraryRows::measure(*rows, stop); };
    background.start(work, [this, rows, mine = turn] {
        if (mine != turn) return;
        all = std::move(*rows);
        show();
    });
}

void LibraryModel::show() {
    const auto wanted = search.trimmed();
    auto rows = all;
    std::erase_if(rows, [&](const LibraryRow& row) {
        return !row.name.contains(wanted, Qt::CaseInsensitive) &&
               !row.about.contains(wanted, Qt::CaseInsensitive) &&
               !row.group.contains(wanted, Qt::CaseInsensitive);
    });
    assign(std::move(rows));
    emit listed();
}

const Book* LibraryModel::book(const QString& id) const {
    const auto found = std::ranges::find_if(
        rows(), [&](const LibraryRow& row) { return row.book && row.book->id() == id.toStdString(); });
    return found == rows().end() ? nullptr : found->book.get();
}

bool LibraryModel::add(int row) {
    return put(row, std::nullopt);
}

bool LibraryModel::addAt(int row, double time) {
    return put(row, std::max(time, 0.0));
}

bool LibraryModel::put(int at, std::optional<double> time) {
    if (at < 0 || at >= rowCount()) return false;
    const auto row = rows()[static_cast<std::size_t>(at)];
    try {
        if (row.kind == LibraryRow::Kind::sound)
            arrivals.take({{row.file, kindOf(editor.sidebar().collection), time, row.folder}});
        else if (row.book && row.book->playbook.layered() && time && editor.video())
            CutCommands::addGenerator(editor, *row.book, seamAt(*editor.video(), *time));
        else if (row.book && row.book->playbook.layered())
            CutCommands::addGenerator(editor, *row.book, std::nullopt);
        else if (row.book)
            OverlayCommands::addOverlay(editor, *row.book, time);
        else
            return false;
    } catch (const Problem& error) {
        editor.refuse(error.message());
        return false;
    }
    return true;
}

void LibraryModel::play(int at) {
    if (at < 0 || at >= rowCount()) return;
    const auto& row = rows()[static_cast<std::size_t>(at)];
    const auto path = QString::fromStdString(row.file.string());
    if (row.kind != LibraryRow::Kind::sound) return;
    if (preview.playing() == path) return preview.stop();
    const auto length = SoundMix::lengthOf(row.file);
    if (!length) return editor.refuse(row.name.toStdString() + " can't be read");
    editor.playback.pause();
    editor.source.pause();
    preview.play(path, *length);
}

void LibraryModel::bringIn(const QStringList& paths) {
    auto came = std::make_shared<std::vector<Book>>();
    auto fault = std::make_shared<std::string>();
    const auto work = [paths, came, fault] {
        for (const auto& path : paths) try {
                came->push_back(Playbooks::bringIn(path.toStdString()));
            } catch (const Problem& problem) {
                *fault = problem.message();
            }
    };
    background.start(work, [this, came, fault, busy = editor.busy()] {
        if (!came->empty()) {
            editor.setSidebar({LibraryRows::pageOf(came->back()), {}});
            reload();
            const auto name = came->back().playbook.name;
            editor.say(came->size() == 1 ? "“" + name + "” is in the library"
                                         : std::to_string(came->size()) + " playbooks are in the library");
        }
        if (!fault->empty()) editor.refuse(*fault);
    });
}

void LibraryModel::openFolder(int row) {
    if (row >= 0 && row < rowCount() && !rows()[static_cast<std::size_t>(row)].file.empty())
        return FolderView::show(QString::fromStdString(rows()[static_cast<std::size_t>(row)].file.string()));
    QDir().mkpath(folder());
    FolderView::show(folder());
}

}
