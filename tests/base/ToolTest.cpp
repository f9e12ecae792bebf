#include "platform/base/Cancelled.h"
#include "platform/base/Tool.h"
#include "tests/Environment.h"
#include "tests/ProblemOf.h"
#include "tests/TemporaryFolder.h"

#include <chrono>
#include <csignal>
#include <thread>

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace murbo;
using namespace std::chrono_literals;
using testing::EndsWith;
using testing::StartsWith;
using Clock = std::chrono::steady_clock;

namespace {

/// Tools of the test's own, found by way of the home folder and PATH.
class Tools : public testing::Test {
protected:
    std::filesystem::path tool(const std::string& name, const std::string& script) const {
        const auto file = folder.file(name, "#!/bin/sh\n" + script);
        std::filesystem::permissions(file, std::filesystem::perms::owner_all);
        return file;
    }

    /// The number that a tool wrote into a file, once it is there.
    pid_t number(const char* name) const {
        for (int tries = 0; tries < 500; ++tries) {
            std::ifstream file(folder / name);
            pid_t found = 0;
            if (file >> found && file.get() == '\n') return found;
            std::this_thread::sleep_for(10ms);
        }
        return 0;
    }

    const TemporaryFolder folder;
    const Environment home{"HOME", folder.path};
    const Environment path{"PATH",
                           fmt::format(":relative:{}:{}", (folder / "bin").string(), std::getenv("PATH"))};
};

/// Why a run failed; empty where it did not.
std::string failure(const std::string& name, const std::vector<std::string>& arguments = {},
                    std::stop_token stop = {}, std::chrono::milliseconds limit = 1min) {
    return problemOf([&] { Tool::run(name, arguments, stop, limit); });
}

/// Whether a process is gone, within a second.
bool isGone(pid_t process) {
    for (int tries = 0; tries < 100; ++tries) {
        if (kill(process, 0) != 0) return true;
        // Where nobody waits for the dead they stay in the list.
        std::ifstream status("/proc/" + std::to_string(process) + "/stat");
        std::string id, name, state;
        if (status >> id >> name >> state && state == "Z") return true;
        std::this_thread::sleep_for(10ms);
    }
    return false;
}

}

TEST_F(Tools, areFoundInTheirFoldersInOrder) {
    EXPECT_EQ(Tool::find("env"), "/usr/bin/env");
    EXPECT_EQ(Tool::find("murbo-made-up"), std::nullopt);
    const auto onPath = tool("bin/murbo-made-up", "");
    EXPECT_EQ(Tool::find("murbo-made-up"), onPath);
    const auto own = tool(".local/bin/murbo-made-up", "");
    EXPECT_EQ(Tool::find("murbo-made-up"), own);
    std::filesystem::permissions(own, std::filesystem::perms::owner_read);
    EXPECT_EQ(Tool::find("murbo-made-up"), onPath) << "not executable";
    std::filesystem::remove(own);
    std::filesystem::create_directory(own);
    EXPECT_EQ(Tool::find("murbo-made-up"), onPath) << "a folder is no tool";
    tool("aside/murbo-hidden", "");
    const auto aside = folder / "aside";
    {
        const Environment relative("PATH", std::filesystem::relative(aside));
        EXPECT_EQ(Tool::find("murbo-hidden"), std::nullopt) << "what it finds would depend on where we stand";
    }
    const Environment last("PATH", "/nowhere:" + aside.string());
    EXPECT_EQ(Tool::find("murbo-hidden"), aside / "murbo-hidden");
}

TEST_F(Tools, tellTheirFailureByTheirLastLine) {
    tool("bin/good", "echo all well >&2; echo noise");
    EXPECT_EQ(Tool::run("good", {}), "all well");
    tool("bin/silent", "exit 1");
    EXPECT_EQ(failure("silent"), "silent stopped with an error. ");
    tool("bin/talker", "printf 'one\\ntwo \\377\\n\\n\\n' >&2; exit 3");
    EXPECT_EQ(failure("talker"), "talker stopped with an error. two \uFFFD");
    tool("bin/killed", "echo going >&2; kill -9 $$");
    EXPECT_EQ(failure("killed"), "killed stopped with an error. going");
    tool("bin/flood",
         "yes xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx | head -n 300000 >&2; echo end >&2; exit 1");
    EXPECT_EQ(failure("flood"), "flood stopped with an error. end");
    EXPECT_EQ(failure("murbo-made-up"),
              "murbo-made-up is not installed. Install it with Homebrew, then try again.");
    folder.file("bin/broken", "#!/no/such/shell\n");
    std::filesystem::permissions(folder / "bin/broken", std::filesystem::perms::owner_all);
    EXPECT_EQ(failure("broken"), "broken could not be started: it does not exist.");
    EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1) << "none is left in the system's list";
}

TEST_F(Tools, getTheirArgumentsAsTheyAreAndNothingElse) {
    const auto said = (folder / "said").string();
    tool(
        "bin/teller",
        "printf '%s|' \"$@\" \"$OMP_WAIT_POLICY\" >\"$SAID\"; cat >>\"$SAID\"; ls /proc/self/fd >>\"$SAID\"; "
        "grep -E 'Sig(Ign|Blk)' /proc/self/status | tr -d '\\t' >>\"$SAID\"; umask >>\"$SAID\"; "
        "kill -s INT $$; echo deaf >>\"$SAID\"");
    const Environment variable("SAID", said);
    // What a program that ignores and blocks signals starts must not inherit that.
    for (const int ignored : {SIGINT, SIGPIPE, SIGHUP}) std::signal(ignored, SIG_IGN);
    sigset_t interrupt, before;
    sigemptyset(&interrupt);
    sigaddset(&interrupt, SIGINT);
    pthread_sigmask(SIG_BLOCK, &interrupt, &before);
    const int leaked = dup(0);
    EXPECT_NE(failure("teller", {"a b", "", "ü;$(x)"}), "");
    close(leaked);
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
    for (const int ignored : {SIGINT, SIGPIPE, SIGHUP}) std::signal(ignored, SIG_DFL);
    EXPECT_EQ(contentsOf(said),
              "a b||ü;$(x)|passive|0\n1\n2\n3\nSigBlk:0000000000000000\n"
              "SigIgn:0000000000000000\n0077\n");
}

TEST_F(Tools, endWithAllTheyStartedWhenTheyTakeTooLong) {
    tool("bin/hang", "sleep 600 & echo $! >\"$HOME/child\"; wait");
    const auto started = Clock::now();
    EXPECT_EQ(failure("hang", {}, {}, 400ms),
              "hang stopped with an error. It did not finish in 0.4 seconds.");
    EXPECT_LT(Clock::now() - started, 5s);
    EXPECT_TRUE(isGone(number("child")));
    tool("bin/stubborn", "trap '' TERM; while :; do sleep 1; done");
    EXPECT_THAT(failure("stubborn", {}, {}, 200ms), StartsWith("stubborn stopped"));
    EXPECT_LT(Clock::now() - started, 10s);
}

TEST_F(Tools, endAtOnceWhenAskedTo) {
    tool("bin/hang", "sleep 600 & echo $! >\"$HOME/child\"; wait");
    std::stop_source stop;
    std::jthread asking([&] {
        number("child");
        stop.request_stop();
    });
    EXPECT_THROW(Tool::run("hang", {}, stop.get_token()), Cancelled);
    EXPECT_TRUE(isGone(number("child")));
    EXPECT_THROW(Tool::run("hang", {}, stop.get_token()), Cancelled) << "asked before";
}

TEST_F(Tools, takeWithThemWhatTheyLeaveRunning) {
    tool("bin/parent", "(sleep 600 >/dev/null 2>&1 & echo $! >\"$HOME/grandchild\")");
    Tool::run("parent", {});
    EXPECT_TRUE(isGone(number("grandchild")));
}

TEST_F(Tools, dieWithUsHoweverWeDie) {
    tool("bin/hang", "echo $$ >\"$HOME/tool\"; exec sleep 600");
    const pid_t us = fork();
    if (us == 0) {
        Tool::run("hang", {});
        _exit(0);
    }
    const auto hanging = number("tool");
    ASSERT_GT(hanging, 0);
    kill(us, SIGKILL);
    waitpid(us, nullptr, 0);
    EXPECT_TRUE(isGone(hanging));
}
