#pragma once

#include <string>
#include <vector>

namespace murbo::systemcalls {

/// Calls of the system as the test program wants them: its own stand before the library's.

/// While it lives, flock fails as on a disk that knows no locks, or as where others hold every one.
class FailingLocks {
public:
    explicit FailingLocks(int error);
    ~FailingLocks();
};

/// What has been flushed to the disk since, by the paths that stood there then.
class Flushed {
public:
    Flushed();
    ~Flushed();
    const std::vector<std::string>& paths() const;
};

}
