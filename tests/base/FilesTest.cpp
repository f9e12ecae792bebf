#include "platform/base/Files.h"
#include "platform/base/Problem.h"
#include "tests/base/Scratch.h"

#include <csignal>
#include <cstdlib>
#include <fstream>
#include <thread>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace murbo;
namespace fs = std::filesystem;

namespace {

constexpr std::size_t plenty = 1 << 24;

std::ptrdiff_t filesIn(const fs::path& folder) {
    return std::distance(fs::directory_iterator(folder), fs::directory_iterator());
}

template <class Work>
std::string faultOf(Work work) {
    try {
        work();
    } catch (const Problem& problem) {
        return problem.message();
    }
    return "none";
}

}

TEST(Files, aWrittenFileIsReadBackAndKeepsItsPermissions) {
    const Scratch scratch;
    const auto path = scratch / "odd “name”\nไทย.json";
    Files::writeWhole(path, "one");
    EXPECT_EQ(fs::status(path).permissions() & fs::perms::owner_all,
              fs::perms::owner_read | fs::perms::owner_write);
    fs::permissions(path, fs::perms(0640));
    const std::string bytes(300'000, 'x');
    Files::writeWhole(path, bytes);
    EXPECT_EQ(Files::readWhole(path, plenty), bytes);
    EXPECT_EQ(fs::status(path).permissions(), fs::perms(0640));
    EXPECT_EQ(filesIn(scratch.path()), 1);
}

TEST(Files, aFailedWriteLeavesTheOldFileAndNothingElse) {
    const Scratch scratch;
    const auto path = scratch / "project.json";
    Files::writeWhole(path, "old");
    const auto old = std::signal(SIGXFSZ, SIG_IGN);
    rlimit before{};
    ::getrlimit(RLIMIT_FSIZE, &before);
    const rlimit little{4096, before.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &little);
    const auto fault = faultOf([&] { Files::writeWhole(path, std::string(100'000, 'x')); });
    ::setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, old);
    EXPECT_EQ(fault, "“project.json” could not be written: it is too large.");
    EXPECT_EQ(Files::readWhole(path, plenty), "old");
    EXPECT_EQ(filesIn(scratch.path()), 1);
}

TEST(Files, faultsAreToldInPlainWords) {
    const Scratch scratch;
    std::ofstream(scratch / "file") << "12345";
    fs::create_directory(scratch / "folder");
    ASSERT_EQ(::mkfifo((scratch / "pipe").c_str(), 0600), 0);
    const auto read = [&](const char* name) { return faultOf([&] { Files::readWhole(scratch / name, 4); }); };
    EXPECT_EQ(read("none"), "“none” could not be read: it does not exist.");
    EXPECT_EQ(read("file"), "“file” could not be read: it is too large.");
    EXPECT_EQ(read("folder"), "“folder” could not be read: it is a folder.");
    EXPECT_EQ(read("pipe"), "“pipe” could not be read: it is no ordinary file.");
    EXPECT_EQ(faultOf([&] { Files::createFolder(scratch / "file/below"); }),
              "“below” could not be created: a file stands where a folder is needed.");
    EXPECT_EQ(faultOf([&] { Files::writeWhole(scratch / "folder", "x"); }),
              "“folder” could not be written: it is a folder.");
    EXPECT_EQ(Files::cause(ENOSPC), "there is no space left on the disk");
}

TEST(Files, whatIsNoFileIsNeverReplaced) {
    Scratch scratch;
    const auto pipe = scratch / "pipe";
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    Files::writeWhole(scratch / "file", "bytes");
    fs::create_symlink(pipe, scratch / "link");
    for (const auto& path : {pipe, scratch / "link"}) {
        EXPECT_THAT(faultOf([&] { Files::writeWhole(path, "x"); }), ::testing::HasSubstr("no ordinary file"));
        EXPECT_THAT(faultOf([&] { Files::copy(scratch / "file", path); }),
                    ::testing::HasSubstr("no ordinary file"));
    }
    EXPECT_TRUE(fs::is_fifo(pipe));
    EXPECT_EQ(filesIn(scratch.path()), 3);
}

TEST(Files, aReadOnlyFolderIsRefused) {
    if (::geteuid() == 0) GTEST_SKIP() << "Root may write everywhere.";
    const Scratch scratch;
    fs::permissions(scratch.path(), fs::perms(0555));
    EXPECT_EQ(faultOf([&] { Files::writeWhole(scratch / "a", "x"); }),
              "“a” could not be written: you have no permission.");
    fs::permissions(scratch.path(), fs::perms(0755));
}

TEST(Files, writersOfOnePathNeverMixTheirBytes) {
    const Scratch scratch;
    const auto path = scratch / "file";
    const auto writer = [&](char letter) {
        for (int count = 0; count < 25; ++count) Files::writeWhole(path, std::string(50'000, letter));
    };
    std::jthread a(writer, 'a');
    std::jthread b(writer, 'b');
    writer('c');
    a.join();
    b.join();
    const auto bytes = Files::readWhole(path, plenty);
    EXPECT_EQ(bytes, std::string(50'000, bytes.at(0)));
    EXPECT_EQ(filesIn(scratch.path()), 1);
}

TEST(Files, aKilledWriterLeavesAWholeFileAndNoHeapOfOthers) {
    const Scratch scratch;
    const auto path = scratch / "file";
    Files::writeWhole(path, std::string(200'000, 'a'));
    for (int round = 0; round < 30; ++round) {
        const auto child = ::fork();
        ASSERT_GE(child, 0);
        for (char letter = 'a'; child == 0; letter = letter == 'z' ? 'a' : static_cast<char>(letter + 1))
            Files::writeWhole(path, std::string(200'000, letter));
        ::usleep(static_cast<useconds_t>(500 + 370 * round));
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
        const auto bytes = Files::readWhole(path, plenty);
        ASSERT_EQ(bytes, std::string(200'000, bytes.at(0)));
    }
    EXPECT_LE(filesIn(scratch.path()), 2);
    Files::writeWhole(path, "whole");
    EXPECT_EQ(filesIn(scratch.path()), 1);
}
