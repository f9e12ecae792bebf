#include "core/render/captions/CaptionCache.h"

#include <thread>

#include <gtest/gtest.h>

using namespace murbo;

namespace {

CaptionPicture::Request request(int number, double scale = 0.05) {
    CaptionPicture::Request asked;
    asked.text = std::to_string(number);
    asked.scale = scale;
    asked.width = 900 * scale;
    return asked;
}

}

TEST(CaptionCache, theOneAfter401EmptiesItBeforeItGoesIn) {
    CaptionCache cache;
    for (int number = 0; number < 401; ++number) ASSERT_TRUE(cache.picture(request(number)));
    EXPECT_EQ(cache.count(), 401u);
    cache.picture(request(7));
    EXPECT_EQ(cache.count(), 401u);
    cache.picture(request(401));
    EXPECT_EQ(cache.count(), 1u);
}

TEST(CaptionCache, keepsTheVerySamePictureButNoneThatCannotBeDrawn) {
    CaptionCache cache;
    EXPECT_FALSE(cache.picture(request(1, 1e9)));
    EXPECT_EQ(cache.count(), 0u);
    const auto first = cache.picture(request(1));
    EXPECT_TRUE(first->isSameAs(*cache.picture(request(1))));
    auto other = request(1);
    other.stress = {0};
    EXPECT_FALSE(first->isSameAs(*cache.picture(other)));
}

TEST(CaptionCache, theOneThatWouldTakeItOver16MillionPixelsEmptiesIt) {
    CaptionCache cache;
    const Rect one = CaptionPicture::draw(request(10, 3))->extent();
    const auto most = std::size_t(16'000'000 / (one.width * one.height));
    for (std::size_t number = 0; number < 3 * most; ++number) {
        ASSERT_TRUE(cache.picture(request(int(10 + number), 3)));
        EXPECT_EQ(cache.count(), number % most + 1);
    }
}

TEST(CaptionCache, threadsMayAskAtOnce) {
    CaptionCache cache;
    std::vector<std::jthread> threads;
    for (int thread = 0; thread < 8; ++thread)
        threads.emplace_back([&] {
            for (int number = 0; number < 40; ++number) EXPECT_TRUE(cache.picture(request(number)));
        });
    threads.clear();
    EXPECT_EQ(cache.count(), 40u);
}
