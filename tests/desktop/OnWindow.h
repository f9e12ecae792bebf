#pragma once

#include "tests/desktop/WindowOfProject.h"

#include <memory>

#include <gtest/gtest.h>

namespace murbo {

/// The fixture of tests of a window, `shown`: each has one of its own, which nothing complained of at its
/// end.
template <class Window>
class OnWindow : public testing::Test {
protected:
    void SetUp() override {
        MURBO_NEEDS_FFMPEG();
        shown = std::make_unique<Window>();
        ASSERT_TRUE(shown->opened) << shown->desktop->problem().toStdString();
    }
    void TearDown() override { EXPECT_EQ(Complaints::list(), ""); }

    std::unique_ptr<Window> shown;
};

}
