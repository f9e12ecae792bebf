#include "app/desktop/Desktop.h"
#include "app/desktop/GuardedApplication.h"
#include "platform/store/SettingsStore.h"
#include "tests/TemporaryFolder.h"

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
        // No test may ask the desktop of whoever runs it for anything, or change its settings.
        setenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent", 1);
        setenv("DBUS_SYSTEM_BUS_ADDRESS", "unix:path=/nonexistent", 1);
        setenv("XDG_CONFIG_HOME", config.path.c_str(), 1);
        SettingsStore::standard();
        application.emplace(count, arguments);
        Desktop::setUp();
    }
    void TearDown() override { application.reset(); }

private:
    int count = 1;
    char name[5] = "test";
    char* arguments[2] = {name, nullptr};
    TemporaryFolder config;
    std::optional<GuardedApplication> application;
};

[[maybe_unused]] const auto* const registered = testing::AddGlobalTestEnvironment(new DesktopApplication);

}
}
