#include "app/desktop/Desktop.h"

#include <QGuiApplication>
#include <cstdlib>
#include <optional>

#include <gtest/gtest.h>

namespace murbo {
namespace {

/// Windows without a screen, in a run-time folder of their own.
class DesktopApplication : public testing::Environment {
public:
    void SetUp() override {
        setenv("QT_QPA_PLATFORM", "offscreen", 0);
        application.emplace(count, arguments);
        Desktop::setUp();
    }
    void TearDown() override { application.reset(); }

private:
    int count = 1;
    char name[5] = "test";
    char* arguments[2] = {name, nullptr};
    std::optional<QGuiApplication> application;
};

[[maybe_unused]] const auto* const registered = testing::AddGlobalTestEnvironment(new DesktopApplication);

}
}
