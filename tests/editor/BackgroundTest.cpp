#include "app/editor/Background.h"

#include <QCoreApplication>
#include <atomic>
#include <chrono>
#include <future>
#include <string>
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

TEST(Background, aShortJobOvertakesALongOne) {
    std::promise<void> go;
    std::string ended;
    Background background;
    background.start([&] { go.get_future().wait(); }, [&] { ended += "long"; });
    background.start([] {}, [&] { ended += "short "; });
    for (int turn = 0; turn < 2000 && ended.empty(); ++turn) {
        QCoreApplication::processEvents();
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    go.set_value();
    background.finish();
    EXPECT_EQ(ended, "short long");
}
