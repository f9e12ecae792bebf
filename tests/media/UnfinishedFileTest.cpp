#include "platform/base/Problem.h"
#include "platform/media/UnfinishedFile.h"
#include "tests/base/Scratch.h"

#include <csignal>
#include <fstream>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace murbo;
namespace fs = std::filesystem;

namespace {

std::string text(const fs::path& path) {
    std::ifstream file(path);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::ptrdiff_t entries(const fs::path& folder) {
    return std::distance(fs::directory_iterator(folder), fs::directory_iterator());
}

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
        Scratch scratch;
        const auto path = scratch / "movie.mp4";
        for (int time = 0; time < 3; ++time) killedWhileWriting(path, named);
        EXPECT_EQ(entries(scratch.path()), named ? 1 : 0);
        write(path, named);
        EXPECT_EQ(text(path), "new");
        EXPECT_EQ(entries(scratch.path()), 1);
        // One that was left under a name does not stand in the way of one without.
        killedWhileWriting(path, true);
        write(path, false);
        EXPECT_EQ(text(path), "new");
        EXPECT_EQ(entries(scratch.path()), 1);
    }
}

TEST(UnfinishedFile, twoWritersOfOnePlaceKeepOutOfEachOthersWay) {
    for (const bool named : {false, true}) {
        Scratch scratch;
        const auto path = scratch / "movie.mp4";
        UnfinishedFile one(path, named);
        ASSERT_EQ(::write(one.descriptor(), "one", 3), 3);
        write(path, named);
        EXPECT_EQ(text(path), "new");
        one.finish();
        EXPECT_EQ(text(path), "one");
        EXPECT_EQ(entries(scratch.path()), 1);
    }
}

TEST(UnfinishedFile, replacesNothingThatIsNoFile) {
    Scratch scratch;
    ASSERT_EQ(::mkfifo((scratch / "pipe").c_str(), 0600), 0);
    fs::create_symlink(scratch / "pipe", scratch / "link");
    fs::create_symlink(scratch / "round", scratch / "round");
    for (const bool named : {false, true}) {
        for (const fs::path& path :
             {scratch / "pipe", scratch / "link", scratch / "round", fs::path("/dev/null")})
            EXPECT_THROW(UnfinishedFile(path, named), Problem) << path;
        const auto late = scratch / "late";
        UnfinishedFile file(late, named);
        ASSERT_EQ(::mkfifo(late.c_str(), 0600), 0);
        EXPECT_THROW(file.finish(), Problem);
        EXPECT_TRUE(fs::is_fifo(late));
        fs::remove(late);
    }
    EXPECT_TRUE(fs::is_fifo(scratch / "pipe"));
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
    EXPECT_EQ(entries(scratch.path()), 3);
}

TEST(UnfinishedFile, writesWhereALinkLeadsAndLeavesTheLink) {
    for (const bool named : {false, true}) {
        Scratch scratch;
        fs::create_directory(scratch / "far");
        fs::create_symlink("far/movie.mp4", scratch / "near.mp4");
        fs::create_symlink("near.mp4", scratch / "nearer.mp4");
        for (const char* name : {"near.mp4", "nearer.mp4"}) {
            write(scratch / name, named);
            EXPECT_TRUE(fs::is_symlink(scratch / name));
            EXPECT_EQ(text(scratch / "far" / "movie.mp4"), "new");
            std::ofstream(scratch / "far" / "movie.mp4") << "the old one";
        }
        EXPECT_EQ(entries(scratch / "far"), 1);
        EXPECT_EQ(entries(scratch.path()), 3);
    }
}
