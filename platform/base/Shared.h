#pragma once

#include <atomic>
#include <memory>
#include <utility>
#include <vector>

namespace murbo {

/// A value that is copied by a pointer and cloned when somebody changes a copy.
///
/// A project is kept, compared and recorded at every change, and nearly all of it is the same each time. A
/// `Shared` member costs one pointer to copy and one to compare while it is untouched, whatever it holds.
/// Reading is as for a pointer to const, or as for the container itself; changing goes through `edit`.
/// As a plain value: one thread at a time may change one `Shared`, any number may hold copies.
template <class T>
class Shared {
public:
    Shared() : value(nothing()) {}
    Shared(T given) : value(std::make_shared<T>(std::move(given))) {}

    const T& operator*() const { return *value; }
    const T* operator->() const { return value.get(); }

    /// The value to change; cloned first if another copy holds it. Valid until the next copy is taken.
    T& edit() {
        if (value.use_count() != 1) value = std::make_shared<T>(*value);
        // Whoever held the last other copy has read it before letting go.
        std::atomic_thread_fence(std::memory_order_acquire);
        return const_cast<T&>(*value);
    }

    /// Whether both hold the very same value; never looks at the content.
    bool same(const Shared& other) const { return value == other.value; }

    bool operator==(const Shared& other) const { return same(other) || *value == *other.value; }

    auto begin() const { return value->begin(); }
    auto end() const { return value->end(); }
    auto size() const { return value->size(); }
    bool empty() const requires requires(const T& t) { t.empty(); }
    { return value->empty(); }
    const auto& front() const { return value->front(); }
    const auto& back() const { return value->back(); }
    const auto& operator[](std::size_t index) const { return (*value)[index]; }

private:
    static const std::shared_ptr<const T>& nothing() {
        static const std::shared_ptr<const T> none = std::make_shared<T>();
        return none;
    }

    std::shared_ptr<const T> value;
};

/// A list that is cheap to copy and compare.
template <class T>
using List = Shared<std::vector<T>>;

}
