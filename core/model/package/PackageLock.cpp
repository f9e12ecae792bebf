#include "core/model/package/PackageLock.h"

#include "core/model/package/ProjectError.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/file.h>

namespace murbo {

std::optional<PackageLock> PackageLock::tryLock(const std::filesystem::path& package) {
    Descriptor folder(::open(package.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (folder >= 0 && ::flock(folder, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) return std::nullopt;
    return PackageLock(std::move(folder));
}

PackageLock PackageLock::lock(const std::filesystem::path& package) {
    if (auto lock = tryLock(package)) return std::move(*lock);
    throw Problem(ProjectError::quotedName(package) + " is open in Murbo. Close it there first.");
}

}
