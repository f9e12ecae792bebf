#include "core/render/captions/CaptionCache.h"
#include "platform/image/draw/Canvas.h"
#include "tests/SameBitmaps.h"

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

TEST(CaptionCache, threadsMayAskAtOnceAndGetTheSameBytes) {
    CaptionCache cache;
    std::vector<Bitmap> alone;
    const auto drawn = [](const Image& image) { return Canvas::bitmap(image, image.extent()); };
    for (int number = 0; number < 40; ++number)
        alone.push_back(drawn(*CaptionPicture::draw(request(number, 0.3))));
    std::vector<std::jthread> threads;
    for (int thread = 0; thread < 8; ++thread)
        threads.emplace_back([&, thread] {
            for (int step = 0; step < 40; ++step) {
                const int number = (step + thread * 5) % 40;
                const auto picture = cache.picture(request(number, 0.3));
                ASSERT_TRUE(picture);
                EXPECT_TRUE(same(drawn(*picture), alone[std::size_t(number)])) << number;
            }
        });
    threads.clear();
    EXPECT_EQ(cache.count(), 40u);
}
