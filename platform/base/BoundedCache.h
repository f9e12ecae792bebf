#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <unordered_map>
#include <vector>

namespace murbo {

/// Keeps what is costly to make and used again, as far as it fits; what was used longest ago goes first. Any
/// thread may ask. What several ask for at once is made once; those who ask for other things never wait.
template <class Key, class Value>
class BoundedCache {
public:
    struct Bounds {
        std::size_t entries = 0;
        std::size_t bytes = SIZE_MAX; ///< what was asked for last is kept even alone above them
    };
    struct Weighed {
        Value value;
        std::size_t bytes = 0;
    };

    explicit BoundedCache(Bounds given) : bounds(given) {}

    /// What is kept under a key, or else what `make` gives (a `Weighed`). Where that throws, nothing is kept.
    template <class Make>
    Value get(const Key& key, const Make& make) {
        const std::shared_ptr<Slot> slot = find(key);
        const std::lock_guard making(slot->making);
        if (!slot->value) {
            auto [value, bytes] = make();
            slot->value = std::move(value);
            weigh(key, slot, bytes);
        }
        return *slot->value;
    }

    std::size_t count() const {
        const std::lock_guard locked(lock);
        return entries.size();
    }

private:
    struct Slot {
        // No flag for once: it hangs under the thread sanitizer where making throws.
        std::mutex making; ///< guards the value
        std::optional<Value> value;
    };
    struct CachedEntry {
        std::shared_ptr<Slot> slot = std::make_shared<Slot>();
        std::size_t bytes = 0;
        std::uint64_t used = 0;
    };

    std::shared_ptr<Slot> find(const Key& key) {
        std::vector<CachedEntry> dropped; // freed after the lock
        const std::lock_guard locked(lock);
        CachedEntry& entry = entries[key];
        entry.used = ++uses;
        auto slot = entry.slot;
        makeRoom(dropped);
        return slot;
    }

    void weigh(const Key& key, const std::shared_ptr<Slot>& slot, std::size_t bytes) {
        std::vector<CachedEntry> dropped;
        const std::lock_guard locked(lock);
        const auto found = entries.find(key);
        if (found == entries.end() || found->second.slot != slot) return;
        found->second.bytes = bytes;
        total += bytes;
        makeRoom(dropped);
    }

    void makeRoom(std::vector<CachedEntry>& dropped) {
        const auto older = [](const auto& one, const auto& other) {
            return one.second.used < other.second.used;
        };
        while (entries.size() > 1 && (entries.size() > bounds.entries || total > bounds.bytes)) {
            const auto oldest = std::min_element(entries.begin(), entries.end(), older);
            total -= oldest->second.bytes;
            dropped.push_back(std::move(oldest->second));
            entries.erase(oldest);
        }
    }

    const Bounds bounds;
    mutable std::mutex lock; // guards all below, never a making
    std::unordered_map<Key, CachedEntry> entries;
    std::size_t total = 0; // bytes
    std::uint64_t uses = 0;
};

}
