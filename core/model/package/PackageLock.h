#pragma once

#include "platform/base/Descriptor.h"

#include <filesystem>
#include <optional>

namespace murbo {

/// One writer to a package: a session holds its package for as long as it is open, a command for its length.
/// Readers take no lock.
///
/// The system's advisory lock on the package's own folder: it ends with the process however that ends, goes
/// along when the package is renamed, and leaves no file that a cleaner of caches could take away. Also held
/// against a second lock of the same process. Where a file system knows no such locks, nobody is refused.
class PackageLock {
public:
    /// Nothing where another holds the package. A package that isn't there is not locked, and no fault: who
    /// reads it says so.
    static std::optional<PackageLock> tryLock(const std::filesystem::path& package);

    /// Throws a Problem where another holds the package: “Name.mbproj” is open in Murbo. Close it there
    /// first.
    static PackageLock lock(const std::filesystem::path& package);

private:
    explicit PackageLock(Descriptor opened) : folder(std::move(opened)) {}

    Descriptor folder;
};

}
