#include "platform/base/Problem.h"
#include "platform/base/TemporaryFile.h"
#include "tests/Environment.h"
#include "tests/FullDisk.h"
#include "tests/TemporaryFolder.h"
#include "tests/base/SystemCalls.h"

#include <cerrno>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace murbo;
namespace fs = std::filesystem;

namespace {

class TemporaryFiles : public testing::Test {
protected:
    const TemporaryFolder folder;
    const Environment temporary{"TMPDIR", folder.path};
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
        EXPECT_EQ(entriesIn(folder.path), 2);
    }
    EXPECT_EQ(entriesIn(folder.path), 0);
}

TEST_F(TemporaryFiles, ofAKilledProcessAreSweptAndThoseOfALivingOneAreNot) {
    const auto living = TemporaryFile::make(".wav");
    std::ofstream(living.companion(".json")) << "{}";
    const pid_t other = fork();
    if (other == 0) {
        const auto left = TemporaryFile::make(".wav");
        std::ofstream(left.companion(".json")) << "{}";
        _exit(0); // nothing is tidied up
    }
    waitpid(other, nullptr, 0);
    folder.file("murbo-notes.wav");
    EXPECT_EQ(entriesIn(folder.path), 5);
    const auto next = TemporaryFile::make(".wav");
    EXPECT_EQ(entriesIn(folder.path), 4);
    EXPECT_TRUE(fs::exists(living.path()));
    EXPECT_TRUE(fs::exists(living.companion(".json")));
    EXPECT_TRUE(fs::exists(folder / "murbo-notes.wav")) << "not a name of ours";
}

TEST_F(TemporaryFiles, areMadeOnADiskWithoutLocksAndGiveUpWhereNoneCanBeHad) {
    {
        const systemcalls::FailingLocks unknown(ENOLCK);
        const auto file = TemporaryFile::make(".wav");
        file.write("here", 0);
        EXPECT_EQ(fs::file_size(file.path()), 4u);
        EXPECT_EQ(entriesIn(folder.path), 1);
    }
    const systemcalls::FailingLocks held(EWOULDBLOCK);
    EXPECT_THROW(TemporaryFile::make(".wav"), Problem);
    EXPECT_EQ(entriesIn(folder.path), 0) << "what could not be had is left behind";
}

TEST_F(TemporaryFiles, failInWords) {
    {
        const Environment missing("TMPDIR", folder / "missing");
        EXPECT_THROW(TemporaryFile::make(".wav"), Problem);
    }
    const auto file = TemporaryFile::make(".wav");
    const FullDisk disk(1000);
    EXPECT_THROW(file.write(std::string(2000, 'x'), 0), Problem);
}
