#include "platform/base/SiblingFile.h"

#include "platform/base/Problem.h"
#include "platform/base/SystemError.h"

#include <cerrno>

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/file.h>
#include <sys/stat.h>

namespace murbo::SiblingFile {
namespace {

constexpr mode_t ownersDefault = 0666;   // less the process's mask
constexpr std::size_t longestName = 200; // leaves room for the ending within the usual 255 bytes
constexpr int maxNames = 1000;           // far more than ever write one file at a time
constexpr int maxLinks = 40;             // as many as the system itself follows

[[noreturn]] void notWritten(const std::filesystem::path& place, int error) {
    throw Problem(
        fmt::format("“{}” could not be written: {}.", place.filename().string(), SystemError::cause(error)));
}

/// Whether the open file still stands under its name: another writer may have moved it into place meanwhile.
bool standsAt(int file, const std::filesystem::path& path) {
    struct stat open {};
    struct stat named {};
    return ::fstat(file, &open) == 0 && ::lstat(path.c_str(), &named) == 0 && S_ISREG(open.st_mode) &&
           open.st_ino == named.st_ino && open.st_dev == named.st_dev;
}

}

Claimed claim(const std::filesystem::path& place, std::string_view ending) {
    const auto name = place.filename().string().substr(0, longestName);
    const auto folder = place.has_parent_path() ? place.parent_path() : std::filesystem::path(".");
    for (int number = 0; number < maxNames; ++number) {
        auto path = folder / fmt::format(".{}.{}.{}", name, number, ending);
        Descriptor opened(
            ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, ownersDefault));
        if (opened < 0) {
            const int cause = errno;
            std::error_code unknown;
            if (std::filesystem::exists(std::filesystem::symlink_status(path, unknown)))
                continue; // another's
            notWritten(place, cause);
        }
        if (::flock(opened, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) continue;
        if (standsAt(opened, path)) return {std::move(path), std::move(opened)};
    }
    notWritten(place, EBUSY);
}

void refuseUnlessFile(const std::filesystem::path& place) {
    struct stat there {};
    if (::stat(place.c_str(), &there) != 0) return;
    if (S_ISDIR(there.st_mode)) notWritten(place, EISDIR);
    if (!S_ISREG(there.st_mode)) notWritten(place, ESPIPE);
}

std::filesystem::path followed(std::filesystem::path place) {
    std::error_code none;
    for (int links = 0; std::filesystem::is_symlink(place, none); ++links) {
        if (links == maxLinks) notWritten(place, ELOOP);
        const auto target = std::filesystem::read_symlink(place, none);
        if (none) notWritten(place, none.value());
        place = place.parent_path() / target;
    }
    return place;
}

}
