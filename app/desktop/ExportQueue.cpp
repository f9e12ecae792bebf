#include "app/desktop/ExportQueue.h"

#include "app/desktop/services/PlatformWords.h"
#include "app/editor/Timecode.h"
#include "core/render/export/ExportCancelled.h"

#include <exception>

namespace murbo {
namespace {

constexpr double minShown = 0.02; ///< of the movie: before that nobody knows how long it will take
constexpr int millisecondsASecond = 1000;

/// What came of one movie.
struct Ending {
    QString problem;
    bool stopped = false;
};

Ending make(const ExportQueue::MovieJob& job, const std::function<void(double)>& progress,
            std::stop_token stop) {
    try {
        Exporter::movie(job.video, job.project, job.order, progress, std::move(stop));
        return {};
    } catch (const ExportCancelled&) {
        return {"", true};
    } catch (const std::exception& error) {
        return {"The video could not be exported. " + PlatformWords::shown(error.what()), false};
    }
}

}

ExportQueue::ExportQueue(QObject* parent) : QObject(parent) {}

ExportQueue::~ExportQueue() {
    jobs.clear();
    stopping.request_stop();
    background.finish();
}

void ExportQueue::add(MovieJob job) {
    jobs.push_back(std::move(job));
    if (busy)
        emit changed();
    else
        next();
}

void ExportQueue::stop() {
    stopping.request_stop();
}

void ExportQueue::clear() {
    words.clear();
    madeFile.clear();
    emit changed();
}

void ExportQueue::next() {
    if (jobs.empty()) return emit idle();
    auto job = std::make_shared<MovieJob>(std::move(jobs.front()));
    jobs.pop_front();
    busy = true;
    stopping = {};
    name = QString::fromStdString(job->video.title);
    file = QString::fromStdString(job->order.to.string());
    words.clear();
    madeFile.clear();
    since.start();
    setShare(0);
    emit changed();
    auto ending = std::make_shared<Ending>();
    const auto progress = [this](double now) {
        QMetaObject::invokeMethod(
            this, [this, now] { setShare(now); }, Qt::QueuedConnection);
    };
    background.start(
        [job, ending, progress, stop = stopping.get_token()] { *ending = make(*job, progress, stop); },
        [this, ending] { end(ending->problem, ending->stopped); });
}

void ExportQueue::setShare(double now) {
    share = now;
    emit progressChanged();
}

void ExportQueue::end(const QString& problem, bool stopped) {
    busy = false;
    words = problem;
    if (problem.isEmpty() && !stopped) madeFile = file;
    emit changed();
    if (stopped)
        emit said("Stopped: nothing of “" + name + "” was kept");
    else
        emit said(problem.isEmpty() ? "Exported " + name : problem);
    next();
}

QString ExportQueue::left() const {
    if (!busy || share < minShown) return "";
    const double taken = static_cast<double>(since.elapsed()) / millisecondsASecond;
    return QString::fromStdString(Timecode::clock(taken * (1 - share) / share)) + " left";
}

}
