#include "platform/base/Process.h"

#include "platform/base/Problem.h"
#include "platform/base/SystemError.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <utility>

#include <fcntl.h>
#include <fmt/format.h>
#include <linux/close_range.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>

namespace murbo {
namespace {

using Clock = std::chrono::steady_clock;
using namespace std::chrono_literals;

constexpr auto grace = 1s;                // between asking a process to end and killing it
constexpr std::size_t maxWords = 1 << 16; // a tool that chatters for hours must not fill the memory
constexpr int lastSignal = 31;            // of those that a handler or a parent's wish could change

[[noreturn]] void notStarted(const std::string& program, int error) {
    const auto name = std::filesystem::path(program).filename().string();
    throw Problem(fmt::format("{} could not be started: {}.", name, SystemError::cause(error)));
}

struct Pipe {
    Descriptor reading, writing;

    explicit Pipe(const std::string& program) {
        int ends[2];
        if (::pipe2(ends, O_CLOEXEC) != 0) notStarted(program, errno);
        reading = Descriptor(ends[0]);
        writing = Descriptor(ends[1]);
    }
};

/// What the child needs, made before it is: between fork and exec only bare system calls are safe.
struct Launch {
    std::string program;
    std::vector<char*> arguments;
    std::vector<char*> environment;
    std::string waitPolicy = "OMP_WAIT_POLICY=passive";
    Pipe errors{program};
    Pipe failure{program};
    pid_t parent = ::getpid();

    Launch(const std::filesystem::path& path, const std::vector<std::string>& given) : program(path) {
        arguments.push_back(program.data());
        for (const auto& argument : given) arguments.push_back(const_cast<char*>(argument.c_str()));
        arguments.push_back(nullptr);
        for (char** each = ::environ; *each; ++each) environment.push_back(*each);
        // Tools share the machine with playing and exporting: their threads must not wait by spinning.
        if (!std::getenv("OMP_WAIT_POLICY")) environment.push_back(waitPolicy.data());
        environment.push_back(nullptr);
    }
};

void takeOwnSignals() {
    for (int signal = 1; signal <= lastSignal; ++signal) ::signal(signal, SIG_DFL);
    sigset_t none;
    sigemptyset(&none);
    ::sigprocmask(SIG_SETMASK, &none, nullptr);
}

void takeOwnStreams(int errors) {
    ::dup2(errors, STDERR_FILENO);
    const int nothing = ::open("/dev/null", O_RDWR);
    ::dup2(nothing, STDIN_FILENO);
    ::dup2(nothing, STDOUT_FILENO);
    ::close_range(STDERR_FILENO + 1, ~0U, CLOSE_RANGE_CLOEXEC);
}

[[noreturn]] void become(const Launch& launch) {
    ::setpgid(0, 0);
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (::getppid() != launch.parent) ::_exit(1); // it died before the kernel knew of our wish
    ::umask(077);                                 // what is said in somebody's footage is nobody else's
    takeOwnSignals();
    takeOwnStreams(launch.errors.writing);
    ::execve(launch.program.c_str(), launch.arguments.data(), launch.environment.data());
    const int error = errno;
    [[maybe_unused]] const auto told = ::write(launch.failure.writing, &error, sizeof error);
    ::_exit(1);
}

int milliseconds(Clock::time_point until) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(until - Clock::now()).count();
    return static_cast<int>(std::clamp<std::int64_t>(left, 0, 60'000));
}

}

Process::Process(const std::filesystem::path& program, const std::vector<std::string>& arguments) {
    Launch launch(program, arguments);
    child = ::fork();
    if (child == 0) become(launch);
    if (child < 0) notStarted(launch.program, errno);
    ::setpgid(child, child); // here too: who comes first must not matter to a kill
    launch.failure.writing.close();
    int error = 0;
    const bool failed = ::read(launch.failure.reading, &error, sizeof error) == sizeof error;
    // By number: the header of its function does not let C++ link it before glibc 2.37.
    handle = Descriptor(static_cast<int>(::syscall(SYS_pidfd_open, child, 0)));
    errors = std::move(launch.errors.reading);
    ::fcntl(errors, F_SETFL, O_NONBLOCK);
    if (!failed && handle >= 0) return;
    if (!failed) error = errno;
    end();
    notStarted(launch.program, error);
}

Process::~Process() {
    end();
}

bool Process::wait(Clock::time_point until, int wake) {
    for (;;) {
        std::array<pollfd, 3> sources{{{handle, POLLIN, 0}, {errors, POLLIN, 0}, {wake, POLLIN, 0}}};
        const int ready = ::poll(sources.data(), sources.size(), milliseconds(until));
        if (ready < 0 && errno != EINTR) throw Problem(SystemError::cause(errno));
        takeWords();
        if (sources[0].revents != 0) return reap();
        if (sources[2].revents != 0 || Clock::now() >= until) return false;
    }
}

void Process::takeWords() {
    std::array<char, 4096> part;
    for (std::size_t taken = 0; errors >= 0 && taken < maxWords;) {
        const auto got = ::read(errors, part.data(), part.size());
        if (got == 0) errors.close();
        if (got <= 0) return;
        taken += static_cast<std::size_t>(got);
        words.append(part.data(), static_cast<std::size_t>(got));
        if (words.size() > 2 * maxWords) words.erase(0, words.size() - maxWords);
    }
}

bool Process::reap() {
    ::kill(-child, SIGKILL); // what it started and left behind; the group's number is ours until we waited
    int told = 0;
    while (::waitpid(child, &told, 0) < 0 && errno == EINTR) {
    }
    status = told;
    return true;
}

void Process::end() {
    if (child < 0 || status) return;
    ::kill(-child, SIGTERM);
    if (handle >= 0 && wait(Clock::now() + grace, -1)) return;
    ::kill(-child, SIGKILL);
    reap();
}

}
