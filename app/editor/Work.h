#pragma once

#include <QObject>
#include <deque>
#include <functional>
#include <optional>
#include <stop_token>
#include <string>

#include <qcorotask.h>

namespace murbo {

/// The queue of a session's long jobs: one runs at a time, by name, so that the owner sees it and no second
/// one tramples on it. Main thread only.
class Work : public QObject {
    Q_OBJECT
    Q_PROPERTY(std::optional<std::string> label READ label NOTIFY labelChanged)
    Q_PROPERTY(std::optional<double> progress READ progress NOTIFY progressChanged)

public:
    /// A job runs on the main thread, awaits what takes long, and looks at `stopping` between.
    using Body = std::function<QCoro::Task<>(Work&)>;

    /// Jobs running in all sessions of this process.
    static int running();

    const std::optional<std::string>& label() const { return words; } ///< what the job says that it is doing
    std::optional<double> progress() const { return share; }          ///< 0 to 1, where the job knows
    bool isRunning() const { return words.has_value(); }

    /// Starts a job now; beeps and forgets it where one is running.
    void run(const std::string& label, Body body);
    /// Starts it, or puts it in line.
    void queue(const std::string& label, Body body);
    /// Asks the running job to stop; it keeps what it has finished.
    void cancel() { stop.request_stop(); }
    /// Cancels it, forgets those in line, and stops what is still being made ready.
    void cancelAll();

    void setLabel(const std::string& label);
    void setProgress(std::optional<double> progress);
    std::stop_token stopping() const { return stop.get_token(); }
    /// For what leads up to a job: stops once all is cancelled.
    std::stop_token untilAllCancelled() const { return all.get_token(); }

signals:
    void labelChanged();
    void progressChanged();
    void beeped();
    void finished(); ///< the last job in line has ended

private:
    struct QueuedWork {
        std::string label;
        Body body;
    };

    QCoro::Task<> perform(QueuedWork job);
    void end();

    std::optional<std::string> words;
    std::optional<double> share;
    std::stop_source stop; ///< the running job's
    std::stop_source all;
    std::deque<QueuedWork> waiting;
};

}
