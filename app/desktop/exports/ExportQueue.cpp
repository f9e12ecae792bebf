#include "app/desktop/exports/ExportQueue.h"

#include "app/desktop/services/PlatformWords.h"
#include "app/editor/Timecode.h"
#include "core/render/export/ExportCancelled.h"

#include <algorithm>
#include <exception>

namespace murbo {
namespace {

constexpr double minShown = 0.02; ///< of the movie: before that nobody knows how long it will take
constexpr int millisecondsASecond = 1000;

/// What came of one movie.
struct Ending {
    ExportRow::MovieState state = ExportRow::MovieState::done;
    QString words;
};

Ending make(const ExportQueue::MovieJob& job, const std::function<void(double)>& progress,
            std::stop_token stop) {
    try {
        Exporter::movie(job.video, job.project, job.order, progress, std::move(stop));
        return {};
    } catch (const ExportCancelled&) {
        return {ExportRow::MovieState::stopped, "Stopped: nothing of it was kept"};
    } catch (const std::exception& error) {
        return {ExportRow::MovieState::failed,
                "The video could not be exported. " + PlatformWords::shown(error.what())};
    }
}

}

ExportQueue::ExportQueue(QObject* parent) : QObject(parent) {}

ExportQueue::~ExportQueue() {
    queue.clear();
    stopping.request_stop();
    background.finish();
}

const ExportQueue::QueuedMovie* ExportQueue::at(ExportRow::MovieState state) const {
    const auto found =
        std::ranges::find_if(queue, [state](const QueuedMovie& movie) { return movie.row.state == state; });
    return found == queue.end() ? nullptr : &*found;
}

int ExportQueue::waiting() const {
    return static_cast<int>(std::ranges::count_if(
        queue, [](const QueuedMovie& movie) { return movie.row.state == ExportRow::MovieState::waiting; }));
}

QString ExportQueue::title() const {
    const auto* movie = at(ExportRow::MovieState::running);
    return movie ? movie->row.title : "";
}

void ExportQueue::add(MovieJob job) {
    ExportRow row;
    row.id = std::to_string(++asked);
    row.title = QString::fromStdString(job.video.title);
    row.file = QString::fromStdString(job.order.to.string());
    queue.push_back({row, std::make_shared<const MovieJob>(std::move(job))});
    if (running())
        refresh();
    else
        next();
}

bool ExportQueue::holds(const UUID& video) const {
    return std::ranges::any_of(
        queue, [&](const QueuedMovie& movie) { return movie.job && movie.job->video.id == video; });
}

bool ExportQueue::makes(const QString& path) const {
    return std::ranges::any_of(queue,
                               [&](const QueuedMovie& movie) { return movie.job && movie.row.file == path; });
}

void ExportQueue::stop() {
    stopping.request_stop();
}

void ExportQueue::remove(const QString& movie) {
    const auto found = std::ranges::find_if(
        queue, [&](const QueuedMovie& one) { return one.row.id == movie.toStdString(); });
    if (found == queue.end()) return;
    if (found->row.state == ExportRow::MovieState::running) return stop();
    if (found->row.file == madeFile) madeFile.clear();
    if (found->row.words == words) words.clear();
    queue.erase(found);
    refresh();
}

void ExportQueue::clear() {
    std::erase_if(queue, [](const QueuedMovie& movie) { return movie.row.isEnded(); });
    words.clear();
    madeFile.clear();
    refresh();
}

void ExportQueue::refresh() {
    std::vector<ExportRow> rows;
    for (const auto& movie : queue) rows.push_back(movie.row);
    list.assign(std::move(rows));
    emit changed();
}

void ExportQueue::next() {
    auto* movie = at(ExportRow::MovieState::waiting);
    if (!movie) return emit idle();
    movie->row.state = ExportRow::MovieState::running;
    stopping = {};
    words.clear();
    since.start();
    setShare(0);
    refresh();
    auto ending = std::make_shared<Ending>();
    const auto progress = [this](double now) {
        QMetaObject::invokeMethod(
            this, [this, now] { setShare(now); }, Qt::QueuedConnection);
    };
    background.start([job = movie->job, ending, progress,
                      stop = stopping.get_token()] { *ending = make(*job, progress, stop); },
                     [this, ending] { end(ending->state, ending->words); });
}

void ExportQueue::setShare(double now) {
    share = now;
    emit progressChanged();
}

void ExportQueue::end(ExportRow::MovieState state, const QString& said) {
    auto* movie = at(ExportRow::MovieState::running);
    if (!movie) return; // the queue is going
    movie->job.reset();
    movie->row.state = state;
    movie->row.words = said;
    const auto name = movie->row.title;
    if (state == ExportRow::MovieState::failed) words = said;
    if (state == ExportRow::MovieState::done) madeFile = movie->row.file;
    if (waiting() == 0) refresh(); // else with the next one: the queue is never idle between two
    if (state == ExportRow::MovieState::stopped)
        emit this->said("Stopped: nothing of “" + name + "” was kept");
    else
        emit this->said(state == ExportRow::MovieState::done ? "Exported " + name : said);
    next();
}

QString ExportQueue::left() const {
    if (!running() || share < minShown) return "";
    const double taken = static_cast<double>(since.elapsed()) / millisecondsASecond;
    return QString::fromStdString(Timecode::clock(taken * (1 - share) / share)) + " left";
}

}
