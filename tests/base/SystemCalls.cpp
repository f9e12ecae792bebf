#include "tests/base/SystemCalls.h"

#include <cerrno>
#include <filesystem>
#include <optional>

#include <sys/syscall.h>
#include <unistd.h>

namespace murbo::systemcalls {

namespace {

int lockError = 0;
std::optional<std::vector<std::string>> flushed;

}

FailingLocks::FailingLocks(int error) {
    lockError = error;
}
FailingLocks::~FailingLocks() {
    lockError = 0;
}

Flushed::Flushed() {
    flushed.emplace();
}
Flushed::~Flushed() {
    flushed.reset();
}
const std::vector<std::string>& Flushed::paths() const {
    return *flushed;
}

}

extern "C" int flock(int file, int operation) {
    using namespace murbo::systemcalls;
    if (lockError == 0) return static_cast<int>(syscall(SYS_flock, file, operation));
    errno = lockError;
    return -1;
}

extern "C" int fsync(int file) {
    using namespace murbo::systemcalls;
    std::error_code unknown;
    if (flushed)
        flushed->push_back(std::filesystem::read_symlink("/proc/self/fd/" + std::to_string(file), unknown));
    return static_cast<int>(syscall(SYS_fsync, file));
}
