#include "core/ai/DescribeClips.h"
#include "tests/ai/Played.h"

#include <gmock/gmock.h>

using namespace murbo;
using testing::ElementsAre;

TEST(DescribeClips, goesInBatchesThatARequestCanHold) {
    Played played;
    auto& clips = played.project.clips.edit();
    clips.clear();
    for (int n = 0; n < 30; ++n) clips.push_back({.start = 0, .end = 10});
    clips[25].end = 3000; // too long for any company
    Brief::Clips all;
    for (const auto& clip : clips) all.push_back(&clip);
    std::vector<std::size_t> sizes;
    for (const auto& batch : DescribeClips::batches(all)) sizes.push_back(batch.size());
    EXPECT_THAT(sizes, ElementsAre(20, 5, 1, 4));
}
