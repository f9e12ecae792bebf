#include "platform/base/Descriptor.h"
#include "platform/base/Process.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

using namespace murbo;
using namespace std::chrono_literals;

namespace {

const std::filesystem::path shell = "/bin/sh";

/// Far enough off that only a hang would come so far.
std::chrono::steady_clock::time_point late() {
    return std::chrono::steady_clock::now() + 1min;
}

}

TEST(Process, waitsNoLongerThanAskedAndCanBeWoken) {
    int ends[2];
    ASSERT_EQ(::pipe(ends), 0);
    const Descriptor reading(ends[0]), writing(ends[1]);
    Process process(shell, {"-c", "read line; sleep 600"});
    EXPECT_FALSE(process.wait(std::chrono::steady_clock::now(), -1));
    EXPECT_FALSE(process.wait(std::chrono::steady_clock::now() + 10ms, reading));
    EXPECT_FALSE(process.succeeded()) << "it has not ended";
    ASSERT_EQ(::write(writing, "x", 1), 1);
    EXPECT_FALSE(process.wait(late(), reading));
    process.end();
    EXPECT_FALSE(process.succeeded());
    process.end();
}

TEST(Process, keepsTheEndOfManyWords) {
    Process process(shell,
                    {"-c", "i=0; while [ $i -lt 3000 ]; do printf '%0100d\\n' $i >&2; i=$((i+1)); done"});
    EXPECT_TRUE(process.wait(late(), -1));
    std::string all;
    for (int number = 0; number < 3000; ++number) all += fmt::format("{:0100}\n", number);
    const auto& words = process.lastWords();
    EXPECT_TRUE(all.ends_with(words));
    EXPECT_GE(words.size(), 1u << 16);
    EXPECT_LE(words.size(), 2u << 16);
}
