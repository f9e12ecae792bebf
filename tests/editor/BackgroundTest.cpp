#include "app/editor/Background.h"

#include <atomic>
#include <chrono>
#include <thread>

#include <gtest/gtest.h>

using namespace murbo;

TEST(Background, whatRunsIsWaitedFor) {
    std::atomic<bool> done = false;
    {
        Background background;
        background.start(
            [&] {
                std::this_thread::sleep_for(std::chrono::milliseconds(30));
                done = true;
            },
            [] {});
    }
    EXPECT_TRUE(done);
}
