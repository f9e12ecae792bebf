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

}
