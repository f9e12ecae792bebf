#include "tests/ai/OwnSettings.h"

#include "platform/store/SettingsStore.h"

#include <gtest/gtest.h>

namespace murbo {
namespace {

/// Before the first test, whichever that is: the store is opened once a process, and is never that of whoever
/// runs the tests.
class SettingsOfTheTests : public testing::Environment {
public:
    void SetUp() override {
        ownSettings();
        SettingsStore::standard();
    }
};

[[maybe_unused]] const auto* const registered = testing::AddGlobalTestEnvironment(new SettingsOfTheTests);

}
}
