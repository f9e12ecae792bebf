#include "platform/base/TemporaryFile.h"

#include "platform/base/Problem.h"
#include "platform/base/SystemError.h"
#include "platform/base/UUID.h"

#include <cerrno>
#include <system_error>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace murbo {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view prefix = "murbo-";
constexpr int maxTries = 100;                        // a sweep comes between once in a million times
constexpr std::string_view companions[] = {".json"}; // made beside a file of ours by the tools that read it

[[noreturn]] void notWritten(int error) {
    throw Problem("A temporary file could not be written: " + SystemError::cause(error) + ".");
}

fs::path folder() {
    std::error_code error;
    auto found = fs::temp_directory_path(error);
    if (error) notWritten(error.value());
    return found;
}

bool isOurs(const fs::path& path) {
    const auto stem = path.stem().string();
    return stem.starts_with(prefix) && UUID::parse(stem.substr(prefix.size()));
}

/// Whether an open file still stands under its name.
bool standsAt(int file, const fs::path& path) {
    struct stat open {};
    struct stat named {};
    return ::fstat(file, &open) == 0 && ::lstat(path.c_str(), &named) == 0 && open.st_ino == named.st_ino &&
           open.st_dev == named.st_dev;
}

/// Whether a file was left by a process of ours that is gone: nobody holds its lock, which is ours from now
/// on.
bool takeOver(int file, const fs::path& path) {
    struct stat facts {};
    return file >= 0 && ::flock(file, LOCK_EX | LOCK_NB) == 0 && standsAt(file, path) &&
           ::fstat(file, &facts) == 0 && facts.st_uid == ::geteuid();
}

/// Locks a file that we have just made, so that no sweep takes it. Not where a sweep came between. Where the
/// disk knows no locks, as some network mounts, no sweep can take it either.
bool keep(int file, const fs::path& path) {
    const bool swept = ::flock(file, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
    return !swept && standsAt(file, path);
}

fs::path beside(fs::path path, std::string_view extension) {
    return path.replace_extension(extension);
}

void unlinkWithCompanions(const fs::path& path) {
    for (const auto extension : companions) ::unlink(beside(path, extension).c_str());
    ::unlink(path.c_str());
}

bool isCompanion(const fs::path& path) {
    for (const auto extension : companions)
        if (path.extension() == extension) return true;
    return false;
}

/// Removes the files whose owner was killed before he could.
void sweep(const fs::path& from) {
    std::error_code error;
    for (fs::directory_iterator entry(from, error), end; !error && entry != end; entry.increment(error)) {
        const auto& path = entry->path();
        if (!isOurs(path) || isCompanion(path)) continue;
        const Descriptor file(::open(path.c_str(), O_RDWR | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK));
        if (takeOver(file, path)) unlinkWithCompanions(path);
    }
}

}

TemporaryFile TemporaryFile::make(std::string_view extension) {
    const auto where = folder();
    sweep(where);
    for (int tries = 0; tries < maxTries; ++tries) {
        auto path = where / (std::string(prefix) + UUID::make().text() + std::string(extension));
        Descriptor file(::open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
        if (file < 0) notWritten(errno);
        if (keep(file, path)) return TemporaryFile(std::move(path), std::move(file));
        ::unlink(path.c_str());
    }
    notWritten(EBUSY);
}

TemporaryFile::TemporaryFile(fs::path path, Descriptor opened)
    : place(std::move(path)), file(std::move(opened)) {}

TemporaryFile::~TemporaryFile() {
    if (file >= 0) unlinkWithCompanions(place);
}

fs::path TemporaryFile::companion(std::string_view extension) const {
    return beside(place, extension);
}

void TemporaryFile::write(std::string_view bytes, std::size_t at) const {
    while (!bytes.empty()) {
        const auto written = ::pwrite(file, bytes.data(), bytes.size(), static_cast<off_t>(at));
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) notWritten(errno);
        bytes.remove_prefix(static_cast<std::size_t>(written));
        at += static_cast<std::size_t>(written);
    }
}

void TemporaryFile::cutOff(std::size_t size) const {
    if (::ftruncate(file, static_cast<off_t>(size)) != 0) notWritten(errno);
}

}
