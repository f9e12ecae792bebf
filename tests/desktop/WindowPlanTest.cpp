#include "app/desktop/WindowPlan.h"

#include <algorithm>
#include <vector>

#include <gtest/gtest.h>

using namespace murbo;

namespace {

std::vector<QRectF> regions(const WindowPlan& plan) {
    std::vector<QRectF> list{plan.sidebar, plan.browser, plan.source, plan.timeline};
    if (plan.video != plan.source) list.push_back(plan.video);
    if (!plan.inspector.isEmpty()) list.push_back(plan.inspector);
    return list;
}

}

TEST(WindowPlan, regionsLieInTheWindowAndNoneCoversAnother) {
    for (const double width : {1024.0, 1280.0, 1499.0, 1500.0, 1700.0, 1920.0, 2560.0, 5120.0})
        for (const double height : {640.0, 800.0, 1080.0, 1440.0})
            for (const int choices : {0, 1, 2, 3, 4, 5, 6, 7})
                for (const double timeline : {0.0, 10.0, 500.0, 99999.0}) {
                    const double wide = timeline; // the same extremes for the widths
                    const auto plan =
                        WindowPlan::of({width, height, bool(choices & 1), bool(choices & 2),
                                        bool(choices & 4), timeline, wide, wide, wide, wide, wide});
                    EXPECT_GE(std::min(plan.source.width(), plan.video.width()), 260)
                        << width << "x" << height << ": room for either viewer";
                    const auto list = regions(plan);
                    for (std::size_t one = 0; one < list.size(); ++one) {
                        EXPECT_TRUE(
                            QRectF(0, WindowPlan::bar, width, height - WindowPlan::bar).contains(list[one]))
                            << width << "x" << height << " region " << one;
                        EXPECT_GE(list[one].width(), 46);
                        EXPECT_GE(list[one].height(), 100);
                        for (std::size_t other = 0; other < one; ++other)
                            EXPECT_FALSE(list[one].intersects(list[other])) << width << "x" << height;
                    }
                }
}
