#include "platform/base/Heap.h"

#include <cstring>
#include <fstream>
#include <memory>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

using namespace murbo;

namespace {

double heldMegabytes() {
    std::ifstream file("/proc/self/statm");
    double all = 0;
    double resident = 0;
    file >> all >> resident;
    return resident * 4096 / (1 << 20);
}

/// As a codec's threads do: blocks that grow, all freed at the end but a little one made last.
std::unique_ptr<char[]> work() {
    std::vector<std::unique_ptr<char[]>> blocks;
    for (int at = 1; at <= 12; ++at) {
        const std::size_t bytes = at * 700'000;
        blocks.emplace_back(new char[bytes]);
        std::memset(blocks.back().get(), at, bytes);
    }
    return std::unique_ptr<char[]>(new char[100]);
}

}

TEST(Heap, whatManyThreadsFreedIsGivenBack) {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    GTEST_SKIP() << "sanitizers keep memory of their own";
#endif
    Heap::keepSmall();
    const double before = heldMegabytes();
    std::vector<std::unique_ptr<char[]>> kept(8);
    for (int round = 0; round < 3; ++round) {
        std::vector<std::jthread> threads;
        for (auto& one : kept) threads.emplace_back([&one] { one = work(); });
    }
    EXPECT_LT(heldMegabytes() - before, 60) << "more than 400 MB were taken and freed";
}
