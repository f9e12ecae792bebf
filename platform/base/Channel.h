#pragma once

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <mutex>
#include <optional>
#include <utility>

namespace murbo {

/// A short queue between threads. Whoever puts in waits while it is full, whoever takes out while it is
/// empty: that is what keeps an export's memory flat. Any thread may use it.
template <class T>
class Channel {
public:
    explicit Channel(std::size_t max) : capacity(max) {}

    /// Puts one in; false, and it is dropped, once the channel is closed.
    bool push(T value) {
        std::unique_lock hold(lock);
        changed.wait(hold, [this] { return closed || waiting.size() < capacity; });
        if (closed) return false;
        waiting.push_back(std::move(value));
        changed.notify_all();
        return true;
    }

    /// Takes the oldest one out; nothing once there will be no more.
    std::optional<T> pop() {
        std::unique_lock hold(lock);
        changed.wait(hold, [this] { return closed || !waiting.empty(); });
        if (waiting.empty()) return std::nullopt;
        std::optional<T> value(std::move(waiting.front()));
        waiting.pop_front();
        changed.notify_all();
        return value;
    }

    /// Nothing more comes; what waits may still be taken.
    void finish() {
        const std::lock_guard hold(lock);
        closed = true;
        changed.notify_all();
    }

    /// Nobody takes any more: what waits is dropped.
    void abandon() {
        std::deque<T> dropped; // freed after the lock is let go
        const std::lock_guard hold(lock);
        closed = true;
        dropped.swap(waiting);
        changed.notify_all();
    }

private:
    const std::size_t capacity;
    std::mutex lock;
    std::condition_variable changed;
    std::deque<T> waiting;
    bool closed = false;
};

}
