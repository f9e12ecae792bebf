#include "platform/base/BoundedCache.h"

#include <atomic>
#include <stdexcept>
#include <string>
#include <thread>

#include <gtest/gtest.h>

namespace murbo {

using Cache = BoundedCache<std::string, int>;

TEST(BoundedCache, whatWasUsedLongestAgoGoesFirst) {
    Cache cache({.entries = 3, .bytes = 100});
    int made = 0;
    const auto ask = [&](const std::string& key, std::size_t bytes = 1) {
        const int before = made;
        cache.get(key, [&]() -> Cache::Weighed { return {++made, bytes}; });
        return made > before;
    };
    EXPECT_TRUE(ask("a") && ask("b") && ask("c"));
    EXPECT_FALSE(ask("a"));
    EXPECT_TRUE(ask("d"));
    EXPECT_TRUE(ask("b")) << "one too many: the least used one went";
    EXPECT_FALSE(ask("a"));
    EXPECT_TRUE(ask("large", 99));
    EXPECT_EQ(cache.count(), 2U) << "its bytes leave room for one other";
    EXPECT_TRUE(ask("larger", 1000));
    EXPECT_FALSE(ask("larger", 1000)) << "alone, it is kept even so";
    EXPECT_EQ(cache.count(), 1U);
}

TEST(BoundedCache, whatSeveralAskForIsMadeOnce) {
    BoundedCache<std::string, int> cache({.entries = 10});
    std::atomic<int> made = 0;
    std::vector<std::thread> threads;
    for (int thread = 0; thread < 8; ++thread)
        threads.emplace_back([&] {
            for (int time = 0; time < 200; ++time)
                EXPECT_EQ(cache.get(std::to_string(time % 5),
                                    [&]() -> Cache::Weighed {
                                        ++made;
                                        return {time % 5, 1};
                                    }),
                          time % 5);
        });
    for (auto& thread : threads) thread.join();
    EXPECT_EQ(made, 5);
}

TEST(BoundedCache, whatCouldNotBeMadeIsTriedAgain) {
    Cache cache({.entries = 10});
    const auto failing = []() -> Cache::Weighed { throw std::runtime_error("no memory"); };
    EXPECT_THROW(cache.get("a", failing), std::runtime_error);
    EXPECT_EQ(cache.get("a", []() -> Cache::Weighed { return {7, 1}; }), 7);
}

}
