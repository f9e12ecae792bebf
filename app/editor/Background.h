#pragma once

#include <QObject>
#include <coroutine>
#include <exception>
#include <functional>
#include <memory>
#include <optional>
#include <type_traits>

namespace murbo {

/// Long work off the main thread, awaited on it: `co_await background.run(work)` gives what the work gives,
/// or throws what it throws. Made, awaited and ended on the main thread; each piece of work has a thread of
/// its own. The work needs a name: GCC 12 destroys a lambda twice that is made within the `co_await`.
class Background : public QObject {
public:
    Background();
    ~Background() override;

    /// Waits until all work has ended and whoever awaited it has gone on.
    void finish();

    /// Starts `work` on a thread, and has `then` run on the main thread after it.
    void start(std::function<void()> work, std::function<void()> then);

    template <class Work>
    class Awaiting {
    public:
        using Result = std::invoke_result_t<Work>;

        Awaiting(Background& given, Work done) : background(given), work(std::move(done)) {}
        bool await_ready() const { return false; }
        void await_suspend(std::coroutine_handle<> waiting) {
            background.start([this] { perform(); }, [waiting] { waiting.resume(); });
        }
        Result await_resume() {
            if (error) std::rethrow_exception(error);
            if constexpr (!std::is_void_v<Result>) return std::move(*result);
        }

    private:
        void perform() try {
            if constexpr (std::is_void_v<Result>)
                work();
            else
                result.emplace(work());
        } catch (...) {
            error = std::current_exception();
        }

        Background& background;
        Work work;
        std::optional<std::conditional_t<std::is_void_v<Result>, bool, Result>> result;
        std::exception_ptr error;
    };

    template <class Work>
    Awaiting<Work> run(Work work) {
        return {*this, std::move(work)};
    }

protected:
    bool event(QEvent* event) override;

private:
    struct SharedJobs;
    struct BackgroundJob;

    void resumeEnded();

    std::shared_ptr<SharedJobs> shared;
};

}
