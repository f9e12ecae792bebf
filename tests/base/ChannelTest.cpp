#include "platform/base/Channel.h"

#include <memory>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

namespace murbo {

TEST(Channel, givesAllInOrderThroughLittleRoom) {
    Channel<int> channel(2);
    std::jthread writer([&] {
        for (int number = 0; number < 1000; ++number) EXPECT_TRUE(channel.push(number));
        channel.finish();
    });
    for (int number = 0; number < 1000; ++number) ASSERT_EQ(channel.pop(), number);
    EXPECT_EQ(channel.pop(), std::nullopt);
}

TEST(Channel, whatWaitsIsTakenAfterTheEndAndDroppedWhereNobodyTakes) {
    Channel<std::shared_ptr<int>> channel(2);
    const auto one = std::make_shared<int>(1);
    channel.push(one);
    channel.finish();
    EXPECT_FALSE(channel.push(one)) << "it is closed";
    EXPECT_EQ(channel.pop(), one);
    EXPECT_EQ(channel.pop(), std::nullopt);

    Channel<std::shared_ptr<int>> left(1);
    left.push(one);
    std::jthread waiting(
        [&] { EXPECT_FALSE(left.push(one)) << "it waits for room, and there will be none"; });
    left.abandon();
    waiting.join();
    EXPECT_EQ(left.pop(), std::nullopt);
    EXPECT_EQ(one.use_count(), 1);
}

}
