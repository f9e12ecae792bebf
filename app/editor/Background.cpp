#include "app/editor/Background.h"

#include <QCoreApplication>
#include <QEvent>
#include <condition_variable>
#include <list>
#include <mutex>
#include <thread>

namespace murbo {
namespace {

const auto someEnded = static_cast<QEvent::Type>(QEvent::registerEventType());

}

struct Background::BackgroundJob {
    std::thread thread;
    std::function<void()> then;
    bool ended = false;
};

/// What the threads and the main thread share. The lock is ours, so that who reads a result sees it whole.
struct Background::SharedJobs {
    std::mutex lock;
    std::condition_variable ended;
    std::list<BackgroundJob> jobs;
};

Background::Background() : shared(std::make_shared<SharedJobs>()) {}

Background::~Background() {
    finish();
}

void Background::start(std::function<void()> work, std::function<void()> then) {
    const std::lock_guard hold(shared->lock);
    auto& job = shared->jobs.emplace_back();
    job.then = std::move(then);
    job.thread = std::thread([this, state = shared, &job, work = std::move(work)] {
        work();
        const std::lock_guard done(state->lock);
        job.ended = true;
        state->ended.notify_all();
        QCoreApplication::postEvent(this, new QEvent(someEnded));
    });
}

bool Background::event(QEvent* event) {
    if (event->type() != someEnded) return QObject::event(event);
    resumeEnded();
    return true;
}

void Background::resumeEnded() {
    std::list<BackgroundJob> ended;
    {
        const std::lock_guard hold(shared->lock);
        for (auto job = shared->jobs.begin(); job != shared->jobs.end();) {
            const auto next = std::next(job);
            if (job->ended) ended.splice(ended.end(), shared->jobs, job);
            job = next;
        }
    }
    for (auto& job : ended) job.thread.join();
    for (auto& job : ended) job.then();
}

void Background::finish() {
    for (;;) {
        {
            std::unique_lock hold(shared->lock);
            if (shared->jobs.empty()) return;
            shared->ended.wait(hold, [this] {
                return std::any_of(shared->jobs.begin(), shared->jobs.end(),
                                   [](const BackgroundJob& job) { return job.ended; });
            });
        }
        resumeEnded();
    }
}

}
