#include "app/editor/Work.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(Work, cancellingAllForgetsThoseInLine) {
    for (const bool cancelled : {false, true}) {
        Work work;
        std::string ran;
        const Work::Body second = [&](Work&) -> QCoro::Task<> {
            ran += "second ";
            EXPECT_FALSE(work.progress()) << "that of the one before";
            co_return;
        };
        const Work::Body first = [&](Work& own) -> QCoro::Task<> {
            ran += "first ";
            own.setProgress(0.5);
            own.queue("Second", second);
            own.queue("Again", second);
            const auto leadingUp = own.untilAllCancelled();
            if (cancelled) own.cancelAll();
            EXPECT_EQ(leadingUp.stop_requested(), cancelled);
            EXPECT_EQ(own.stopping().stop_requested(), cancelled);
            co_return;
        };
        work.run("First", first);
        EXPECT_FALSE(work.label() || work.progress()) << "nothing of it stays";
        EXPECT_EQ(ran, cancelled ? "first " : "first second second ");
        EXPECT_FALSE(work.isRunning());
        EXPECT_EQ(Work::running(), 0);
        work.run("Next", [](Work& own) -> QCoro::Task<> {
            EXPECT_FALSE(own.stopping().stop_requested()) << "who stopped the last one did not mean this";
            co_return;
        });
    }
}
