#include "app/editor/Work.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(Work, cancellingAllForgetsThoseInLine) {
    for (const bool cancelled : {false, true}) {
        Work work;
        std::string ran, told;
        QObject::connect(&work, &Work::beeped, [&] { told += "beep "; });
        QObject::connect(&work, &Work::finished, [&] { told += "end "; });
        QObject::connect(&work, &Work::labelChanged, [&] { told += work.label().value_or("none") + " "; });
        QObject::connect(&work, &Work::progressChanged,
                         [&] { told += work.progress() ? std::to_string(*work.progress()) + " " : "none "; });
        const Work::Body second = [&](Work&) -> QCoro::Task<> {
            ran += "second ";
            EXPECT_FALSE(work.progress()) << "that of the one before";
            co_return;
        };
        const Work::Body first = [&](Work& own) -> QCoro::Task<> {
            ran += "first ";
            for (const double share : {0.5, 0.5, 0.25}) own.setProgress(share);
            for (const auto* label : {"First", "On"}) own.setLabel(label);
            own.run("Beside it", second);
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
        EXPECT_EQ(told, std::string("First 0.500000 0.250000 On beep none none ") +
                            (cancelled ? "" : "Second none Again none ") + "end ");
        EXPECT_FALSE(work.isRunning());
        EXPECT_EQ(Work::running(), 0);
        work.run("Next", [](Work& own) -> QCoro::Task<> {
            EXPECT_FALSE(own.stopping().stop_requested()) << "who stopped the last one did not mean this";
            co_return;
        });
    }
}
