#include "platform/base/Files.h"
#include "tests/FullDisk.h"
#include "tests/ProblemOf.h"
#include "tests/TemporaryFolder.h"
#include "tests/base/SystemCalls.h"

#include <csignal>
#include <thread>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace murbo;
namespace fs = std::filesystem;

namespace {

constexpr std::size_t plenty = 1 << 24;

}

TEST(Files, aWrittenFileIsReadBackAndKeepsItsPermissions) {
    const TemporaryFolder folder;
    const auto path = folder / "odd “name”\nไทย.json";
    Files::writeWhole(path, "one");
    EXPECT_EQ(fs::status(path).permissions() & fs::perms::owner_all,
              fs::perms::owner_read | fs::perms::owner_write);
    fs::permissions(path, fs::perms(0640));
    const std::string bytes(300'000, 'x');
    Files::writeWhole(path, bytes);
    EXPECT_EQ(Files::readWhole(path, plenty), bytes);
    EXPECT_EQ(fs::status(path).permissions(), fs::perms(0640));
    EXPECT_EQ(entriesIn(folder.path), 1);
}

TEST(Files, aWrittenFileIsOnTheDiskBeforeItTakesItsPlaceAndItsFolderAfter) {
    const TemporaryFolder folder;
    folder.file("from", "bytes");
    const systemcalls::Flushed flushed;
    Files::writeWhole(folder / "file", "bytes");
    Files::copy(folder / "from", folder / "copy");
    EXPECT_THAT(flushed.paths(),
                ::testing::ElementsAre(::testing::HasSubstr(".file."), folder.path.string(),
                                       ::testing::HasSubstr(".copy."), folder.path.string()));
}

TEST(Files, aFileStaysItsOwners) {
    if (::geteuid() != 0) GTEST_SKIP() << "Only root may write for others.";
    const TemporaryFolder folder;
    const auto path = folder.file("project.json", "old");
    ASSERT_EQ(::chown(path.c_str(), 4711, 4712), 0);
    ASSERT_EQ(::chmod(path.c_str(), 0600), 0);
    Files::writeWhole(path, "new");
    struct stat facts {};
    ASSERT_EQ(::stat(path.c_str(), &facts), 0);
    EXPECT_EQ(facts.st_uid, 4711u);
    EXPECT_EQ(facts.st_gid, 4712u);
    EXPECT_EQ(facts.st_mode & 07777, 0600u);
}

TEST(Files, aFailedWriteLeavesTheOldFileAndNothingElse) {
    const TemporaryFolder folder;
    const auto path = folder / "project.json";
    Files::writeWhole(path, "old");
    {
        const FullDisk disk(4096);
        EXPECT_EQ(problemOf([&] { Files::writeWhole(path, std::string(100'000, 'x')); }),
                  "“project.json” could not be written: it is too large.");
    }
    EXPECT_EQ(Files::readWhole(path, plenty), "old");
    EXPECT_EQ(entriesIn(folder.path), 1);
}

TEST(Files, faultsAreToldInPlainWords) {
    const TemporaryFolder folder;
    folder.file("file", "12345");
    fs::create_directory(folder / "folder");
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    const auto read = [&](const char* name) {
        return problemOf([&] { Files::readWhole(folder / name, 4); });
    };
    EXPECT_EQ(read("none"), "“none” could not be read: it does not exist.");
    EXPECT_EQ(read("file"), "“file” could not be read: it is too large.");
    EXPECT_EQ(read("folder"), "“folder” could not be read: it is a folder.");
    EXPECT_EQ(read("pipe"), "“pipe” could not be read: it is no ordinary file.");
    EXPECT_EQ(problemOf([&] { Files::createFolder(folder / "file/below"); }),
              "“below” could not be created: a file stands where a folder is needed.");
    EXPECT_EQ(problemOf([&] { Files::writeWhole(folder / "folder", "x"); }),
              "“folder” could not be written: it is a folder.");
}

TEST(Files, whatIsNoFileIsNeverReplaced) {
    const TemporaryFolder folder;
    const auto pipe = folder / "pipe";
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    Files::writeWhole(folder / "file", "bytes");
    fs::create_symlink(pipe, folder / "link");
    for (const auto& path : {pipe, folder / "link"}) {
        EXPECT_THAT(problemOf([&] { Files::writeWhole(path, "x"); }),
                    ::testing::HasSubstr("no ordinary file"));
        EXPECT_THAT(problemOf([&] { Files::copy(folder / "file", path); }),
                    ::testing::HasSubstr("no ordinary file"));
    }
    EXPECT_TRUE(fs::is_fifo(pipe));
    EXPECT_EQ(entriesIn(folder.path), 3);
}

TEST(Files, writersOfOnePathNeverMixTheirBytes) {
    const TemporaryFolder folder;
    const auto path = folder / "file";
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
    EXPECT_EQ(entriesIn(folder.path), 1);
}

TEST(Files, aKilledWriterLeavesAWholeFileAndNoHeapOfOthers) {
    const TemporaryFolder folder;
    const auto path = folder / "file";
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
    EXPECT_LE(entriesIn(folder.path), 2);
    Files::writeWhole(path, "whole");
    EXPECT_EQ(entriesIn(folder.path), 1);
}

TEST(Files, aCopyIsTheSameBytesInAFolderThatIsMade) {
    const TemporaryFolder folder;
    const std::string bytes((2 << 20) + 7, 'x');
    folder.file("from", bytes);
    Files::copy(folder / "from", folder / "a/b/to");
    EXPECT_EQ(contentsOf(folder / "a/b/to"), bytes);
    folder.file("from", "short");
    Files::copy(folder / "from", folder / "a/b/to");
    EXPECT_EQ(contentsOf(folder / "a/b/to"), "short");
    EXPECT_EQ(entriesIn(folder / "a/b"), 1);
    EXPECT_EQ(problemOf([&] { Files::copy(folder / "a", folder / "c"); }),
              "“a” could not be read: it is no ordinary file.");
    EXPECT_EQ(problemOf([&] { Files::copy(folder / "none", folder / "c"); }),
              "“none” could not be read: it does not exist.");
}

TEST(Files, whatAKilledWriterLeftIsNoPartOfTheNextFile) {
    const TemporaryFolder folder;
    folder.file(".file.0.new", std::string(100, 'x'));
    Files::writeWhole(folder / "file", "short");
    EXPECT_EQ(contentsOf(folder / "file"), "short");
    EXPECT_EQ(Files::readWhole(folder / "file", 5), "short") << "as many bytes as may be";
}

TEST(Files, aNameInAFolderNeverLeadsOutOfIt) {
    const TemporaryFolder folder;
    folder.file("in/side/file");
    fs::create_symlink(folder.file("secret"), folder / "in/link");
    fs::create_symlink("side", folder / "in/own");
    const auto within = fs::canonical(folder / "in");
    for (const auto& [name, leads] : {std::pair{"side/file", "side/file"},
                                      {"not/there", "not/there"},
                                      {"side/../side/file", "side/file"},
                                      {"/side/file", "side/file"},
                                      {"own/file", "side/file"}})
        EXPECT_EQ(Files::inside(folder / "in", name), within / leads) << name;
    for (const char* name : {"..", "../secret", "side/../../secret", "link", "/../in2", "../inside"})
        EXPECT_EQ(Files::inside(folder / "in", name), std::nullopt) << name;
}
