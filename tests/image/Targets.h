#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <hwy/targets.h>

namespace murbo {

/// Runs `check` on each instruction set of this machine, with its name.
template <typename Check>
void onEachTarget(Check check) {
    hwy::SetSupportedTargetsForTest(0);
    const std::int64_t all = hwy::SupportedTargets();
    for (std::int64_t target = 1; target > 0; target <<= 1) {
        if (!(all & target)) continue;
        hwy::SetSupportedTargetsForTest(target);
        hwy::GetChosenTarget().Update(target);
        check(hwy::TargetName(target));
    }
    hwy::SetSupportedTargetsForTest(0);
    hwy::GetChosenTarget().Update(all);
}

/// What a kernel and its twin make of the same, on each instruction set; what lies past the end must stay.
template <typename T, typename Kernel, typename Twin>
void expectTwins(std::vector<T> target, const Kernel& kernel, const Twin& twin, const std::string& what) {
    std::vector<T> expected = target;
    twin(expected.data());
    onEachTarget([&](const char* name) {
        std::vector<T> found = target;
        kernel(found.data());
        const auto at = std::mismatch(found.begin(), found.end(), expected.begin()).first - found.begin();
        EXPECT_EQ(at, found.end() - found.begin()) << what << " on " << name;
    });
}

}
