#include "app/editor/Work.h"

#include <exception>

namespace murbo {
namespace {

int runningJobs = 0;

}

int Work::running() {
    return runningJobs;
}

void Work::run(const std::string& label, Body body) {
    if (isRunning()) {
        emit beeped();
        return;
    }
    stop = {};
    setLabel(label);
    ++runningJobs;
    perform({label, std::move(body)});
}

void Work::queue(const std::string& label, Body body) {
    if (isRunning())
        waiting.push_back({label, std::move(body)});
    else
        run(label, std::move(body));
}

void Work::cancelAll() {
    waiting.clear();
    std::exchange(all, {}).request_stop();
    cancel();
}

QCoro::Task<> Work::perform(QueuedWork job) {
    try {
        co_await job.body(*this);
    } catch (const std::exception&) {
        // A job reports its own failures; what it could not report ends it all the same.
    }
    end();
}

void Work::end() {
    words.reset();
    emit labelChanged();
    setProgress(std::nullopt);
    --runningJobs;
    if (waiting.empty()) {
        emit finished();
        return;
    }
    auto next = std::move(waiting.front());
    waiting.pop_front();
    run(next.label, std::move(next.body));
}

void Work::setLabel(const std::string& label) {
    if (words == label) return;
    words = label;
    emit labelChanged();
}

void Work::setProgress(std::optional<double> progress) {
    if (share == progress) return;
    share = progress;
    emit progressChanged();
}

}
