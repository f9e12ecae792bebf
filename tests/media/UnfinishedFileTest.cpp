#include "platform/base/Problem.h"
#include "platform/media/UnfinishedFile.h"
#include "tests/TemporaryFolder.h"
#include "tests/base/SystemCalls.h"

#include <csignal>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace murbo;
namespace fs = std::filesystem;

namespace {

void write(const fs::path& path, bool named) {
    UnfinishedFile file(path, named);
    ASSERT_EQ(::write(file.descriptor(), "new", 3), 3);
    file.finish();
}

// A process that is killed while it writes a file and has not finished it.
void killedWhileWriting(const fs::path& path, bool named) {
    const pid_t child = fork();
    if (child == 0) {
        UnfinishedFile file(path, named);
        if (::write(file.descriptor(), "much longer than the next", 25) == 25) ::kill(::getpid(), SIGKILL);
        ::_exit(1);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    ASSERT_TRUE(WIFSIGNALED(status));
}

}

TEST(UnfinishedFile, whatKilledWritersLeftIsTakenOver) {
    for (const bool named : {false, true}) {
        const TemporaryFolder folder;
        const auto path = folder / "movie.mp4";
        for (int time = 0; time < 3; ++time) killedWhileWriting(path, named);
        EXPECT_EQ(entriesIn(folder.path), named ? 1 : 0);
        write(path, named);
        EXPECT_EQ(contentsOf(path), "new");
        EXPECT_EQ(entriesIn(folder.path), 1);
        // One that was left under a name does not stand in the way of one without.
        killedWhileWriting(path, true);
        write(path, false);
        EXPECT_EQ(contentsOf(path), "new");
        EXPECT_EQ(entriesIn(folder.path), 1);
    }
}

TEST(UnfinishedFile, isOnTheDiskBeforeItTakesItsPlaceAndItsFolderAfter) {
    for (const bool named : {false, true}) {
        const TemporaryFolder folder;
        const systemcalls::Flushed flushed;
        write(folder / "movie.mp4", named);
        ASSERT_EQ(flushed.paths().size(), 2u);
        EXPECT_TRUE(flushed.paths()[0].starts_with(folder.path.string() + "/"));
        EXPECT_FALSE(flushed.paths()[0].ends_with("movie.mp4"));
        EXPECT_EQ(flushed.paths()[1], folder.path.string());
    }
}

TEST(UnfinishedFile, takesItsPlaceAsAWholeBesideAnotherWriter) {
    for (const bool named : {false, true}) {
        const TemporaryFolder folder;
        const auto path = folder.file("movie.mp4", "the old one");
        UnfinishedFile one(path, named);
        ASSERT_EQ(::write(one.descriptor(), "one", 3), 3);
        EXPECT_EQ(contentsOf(path), "the old one");
        write(path, named);
        EXPECT_EQ(contentsOf(path), "new");
        one.finish();
        EXPECT_EQ(contentsOf(path), "one");
        EXPECT_EQ(fs::status(path).permissions() & fs::perms::owner_exec, fs::perms::none);
        {
            const UnfinishedFile abandoned(path, named);
            EXPECT_EQ(entriesIn(folder.path), named ? 2 : 1);
        }
        EXPECT_EQ(contentsOf(path), "one");
        EXPECT_EQ(entriesIn(folder.path), 1);
    }
}

TEST(UnfinishedFile, replacesNothingThatIsNoFile) {
    const TemporaryFolder folder;
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    fs::create_symlink(folder / "pipe", folder / "link");
    fs::create_symlink(folder / "round", folder / "round");
    for (const bool named : {false, true}) {
        for (const fs::path& path :
             {folder / "pipe", folder / "link", folder / "round", fs::path("/dev/null")})
            EXPECT_THROW(UnfinishedFile(path, named), Problem) << path;
        const auto late = folder / "late";
        UnfinishedFile file(late, named);
        ASSERT_EQ(::mkfifo(late.c_str(), 0600), 0);
        EXPECT_THROW(file.finish(), Problem);
        EXPECT_TRUE(fs::is_fifo(late));
        fs::remove(late);
    }
    EXPECT_TRUE(fs::is_fifo(folder / "pipe"));
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
    EXPECT_EQ(entriesIn(folder.path), 3);
}

TEST(UnfinishedFile, writesWhereALinkLeadsAndLeavesTheLink) {
    for (const bool named : {false, true}) {
        const TemporaryFolder folder;
        fs::create_directory(folder / "far");
        fs::create_symlink("far/movie.mp4", folder / "near.mp4");
        fs::create_symlink("near.mp4", folder / "nearer.mp4");
        write(folder / "nearer.mp4", named);
        for (const char* name : {"near.mp4", "nearer.mp4"}) EXPECT_TRUE(fs::is_symlink(folder / name));
        EXPECT_EQ(contentsOf(folder / "far" / "movie.mp4"), "new");
        EXPECT_EQ(entriesIn(folder / "far"), 1);
        EXPECT_EQ(entriesIn(folder.path), 3);
    }
}

TEST(UnfinishedFile, isLockedAlsoWhileItHasNoName) {
    const TemporaryFolder folder;
    for (const bool named : {false, true}) {
        const UnfinishedFile file(folder / "movie.mp4", named);
        const auto own = "/proc/self/fd/" + std::to_string(file.descriptor());
        const Descriptor again(::open(own.c_str(), O_RDWR));
        ASSERT_GE(again, 0);
        EXPECT_NE(::flock(again, LOCK_EX | LOCK_NB), 0) << "another would take it for one that was left";
    }
}
