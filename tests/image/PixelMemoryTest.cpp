#include "platform/image/PixelMemory.h"

#include <vector>

#include <gtest/gtest.h>
#include <malloc.h>

using namespace murbo;

namespace {

constexpr std::size_t megabyte = std::size_t{1} << 20;

std::size_t allocated() {
    const auto facts = mallinfo2();
    return facts.uordblks + facts.hblkhd;
}

}

TEST(PixelMemory, keepsWhatIsInUseAndGivesBackWhatNobodyAsksForAnyMore) {
    const auto before = allocated();
    for (int round = 0; round < 50; ++round) PixelMemory::take(8 * megabyte);
    {
        std::vector<std::shared_ptr<std::uint8_t[]>> held;
        for (int each = 0; each < 20; ++each) held.push_back(PixelMemory::take(8 * megabyte));
    }
    EXPECT_LE(allocated(), before + 64 * megabyte) << "however much was in use";
    for (int each = 0; each < 200; ++each) PixelMemory::take(megabyte);
    EXPECT_LE(allocated(), before + 4 * megabyte) << "of a size that is past";
}
