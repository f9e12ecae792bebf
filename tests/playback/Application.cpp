#include <QCoreApplication>

#include <gtest/gtest.h>

namespace murbo {
namespace {

/// Timers ask for an application, also where the test turns the clock.
class Application : public testing::Environment {
public:
    void SetUp() override { application.emplace(count, arguments); }
    void TearDown() override { application.reset(); }

private:
    int count = 1;
    char name[5] = "test";
    char* arguments[2] = {name, nullptr};
    std::optional<QCoreApplication> application;
};

[[maybe_unused]] const auto* const registered = testing::AddGlobalTestEnvironment(new Application);

}
}
