#include "platform/base/Text.h"
#include "platform/store/Keychain.h"
#include "tests/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace murbo;

namespace {

/// A run with the keyring of one variable of the environment, or none.
class Keyring : public testing::Test {
protected:
    void SetUp() override {
        for (const char* name :
             {"OPENROUTER_API_KEY", "DBUS_SESSION_BUS_ADDRESS", "XDG_RUNTIME_DIR", "SECRET_BACKEND"})
            unsetenv(name);
    }
    void TearDown() override { SetUp(); }
    TemporaryFolder folder;
};

}

TEST_F(Keyring, keepsATrimmedKeyUntilAnotherOrNone) {
    // The library keeps to the keyring that it found first, so this one is another process's.
    if (const pid_t other = fork(); other != 0) {
        int status = -1;
        waitpid(other, &status, 0);
        EXPECT_EQ(status, 0);
        return;
    }
    setenv("SECRET_BACKEND", "file", 1);
    setenv("SECRET_FILE_TEST_PATH", (folder / "keyring").c_str(), 1);
    setenv("SECRET_FILE_TEST_PASSWORD", "anything", 1);
    int failures = Keychain::openRouter() ? 1 : 0;
    for (const char* kept : {" sk-or-one\n", "sk-or-two", " \n"}) {
        Keychain::keepOpenRouter(kept);
        const auto trimmed = Text::trimmed(kept);
        if (Keychain::openRouter().value_or("") != trimmed) ++failures;
    }
    _exit(failures);
}

TEST_F(Keyring, thatIsNotThereHoldsNoKey) {
    Keychain::keepOpenRouter("sk-or-lost");
    EXPECT_EQ(Keychain::openRouter(), std::nullopt);
    setenv("DBUS_SESSION_BUS_ADDRESS", ("unix:path=" + (folder / "nobody").string()).c_str(), 1);
    Keychain::keepOpenRouter("sk-or-lost");
    EXPECT_EQ(Keychain::openRouter(), std::nullopt);
}

TEST_F(Keyring, comesAfterTheEnvironment) {
    setenv("OPENROUTER_API_KEY", " as it stands\n", 1);
    EXPECT_EQ(Keychain::openRouter(), " as it stands\n");
    setenv("OPENROUTER_API_KEY", "", 1);
    EXPECT_EQ(Keychain::openRouter(), std::nullopt) << "empty is not set";
}
