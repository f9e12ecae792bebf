#include "platform/base/Problem.h"
#include "platform/base/TemporaryFile.h"
#include "tests/TemporaryFolder.h"

#include <csignal>
#include <cstdlib>

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace murbo;
namespace fs = std::filesystem;

namespace {

class TemporaryFiles : public testing::Test {
protected:
    void SetUp() override { setenv("TMPDIR", folder.path.c_str(), 1); }
    void TearDown() override { unsetenv("TMPDIR"); }

    std::size_t count() const {
        return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder.path), {}));
    }
    TemporaryFolder folder;
};

}

TEST_F(TemporaryFiles, goWithTheirValueAndWhatStandsBesideThem) {
    {
        const auto file = TemporaryFile::make(".wav");
        EXPECT_EQ(file.path().parent_path(), folder.path);
        EXPECT_EQ(fs::status(file.path()).permissions(), fs::perms::owner_read | fs::perms::owner_write);
        file.write("head", 4);
        file.write("tail", 0);
        EXPECT_EQ(fs::file_size(file.path()), 8u);
        file.cutOff(2);
        EXPECT_EQ(fs::file_size(file.path()), 2u);
        std::ofstream(file.companion(".json")) << "{}";
        EXPECT_EQ(count(), 2u);
    }
    EXPECT_EQ(count(), 0u);
}

TEST_F(TemporaryFiles, ofAKilledProcessAreSweptAndThoseOfALivingOneAreNot) {
    const auto living = TemporaryFile::make(".wav");
    const pid_t other = fork();
    if (other == 0) {
        const auto left = TemporaryFile::make(".wav");
        std::ofstream(left.companion(".json")) << "{}";
        _exit(0); // nothing is tidied up
    }
    waitpid(other, nullptr, 0);
    folder.file("murbo-notes.wav");
    EXPECT_EQ(count(), 4u);
    const auto next = TemporaryFile::make(".wav");
    EXPECT_EQ(count(), 3u);
    EXPECT_TRUE(fs::exists(living.path()));
    EXPECT_TRUE(fs::exists(folder / "murbo-notes.wav")) << "not a name of ours";
}

TEST_F(TemporaryFiles, failInWords) {
    setenv("TMPDIR", (folder / "missing").c_str(), 1);
    EXPECT_THROW(TemporaryFile::make(".wav"), Problem);
    setenv("TMPDIR", folder.path.c_str(), 1);
    const auto file = TemporaryFile::make(".wav");
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit small{1000, before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
    EXPECT_THROW(file.write(std::string(2000, 'x'), 0), Problem);
    setrlimit(RLIMIT_FSIZE, &before);
}
