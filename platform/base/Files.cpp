#include "platform/base/Files.h"

#include "platform/base/Descriptor.h"
#include "platform/base/Problem.h"
#include "platform/base/SiblingFile.h"
#include "platform/base/SystemError.h"

#include <cerrno>
#include <cstring>
#include <system_error>

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

namespace murbo::Files {
namespace {

constexpr mode_t permissionBits = 07777;

[[noreturn]] void failed(const std::filesystem::path& path, const char* verb, int error) {
    throw Problem(
        fmt::format("“{}” could not be {}: {}.", path.filename().string(), verb, SystemError::cause(error)));
}

[[noreturn]] void notWritten(const std::filesystem::path& path) {
    failed(path, "written", errno);
}
[[noreturn]] void notRead(const std::filesystem::path& path) {
    failed(path, "read", errno);
}

std::filesystem::path folderOf(const std::filesystem::path& path) {
    return path.has_parent_path() ? path.parent_path() : std::filesystem::path(".");
}

/// The new file beside the old one, until it takes its place.
class NewFile {
public:
    explicit NewFile(const std::filesystem::path& path) : destination(path) {
        SiblingFile::refuseUnlessFile(path);
        claimed = SiblingFile::claim(path, "new");
    }

    NewFile(const NewFile&) = delete;
    ~NewFile() {
        if (!claimed.path.empty()) ::unlink(claimed.path.c_str());
    }

    void begin() {
        struct stat old {};
        if (::ftruncate(claimed.file, 0) != 0) notWritten(destination);
        if (::stat(destination.c_str(), &old) != 0) return;
        keepOwner(old);
        if (::fchmod(claimed.file, old.st_mode & permissionBits) != 0) notWritten(destination);
    }

    void append(std::string_view bytes) {
        while (!bytes.empty()) {
            const auto written = ::write(claimed.file, bytes.data(), bytes.size());
            if (written < 0 && errno == EINTR) continue;
            if (written < 0) notWritten(destination);
            bytes.remove_prefix(static_cast<std::size_t>(written));
        }
    }

    void takePlace() {
        if (::fsync(claimed.file) != 0) notWritten(destination);
        if (::rename(claimed.path.c_str(), destination.c_str()) != 0) notWritten(destination);
        claimed.path.clear();
    }

private:
    /// Who saves as root must not take a file from its owner. Where the system forbids giving it back, it is
    /// as if the one who saves had made it.
    void keepOwner(const struct stat& old) {
        if (::fchown(claimed.file, old.st_uid, old.st_gid) == 0) return;
        [[maybe_unused]] const auto refused = ::fchown(claimed.file, static_cast<uid_t>(-1), old.st_gid);
    }

    std::filesystem::path destination;
    SiblingFile::Claimed claimed{{}, Descriptor(-1)};
};

/// A rename is sure only once its folder is on the disk. Some file systems can't flush folders: then it is as
/// sure as they make it.
void flushFolder(const std::filesystem::path& folder) {
    const Descriptor open(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (open >= 0) ::fsync(open);
}

}

std::string readWhole(const std::filesystem::path& path, std::size_t max) {
    // A pipe under the name of a file would otherwise wait for a writer for ever.
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat facts {};
    if (file < 0 || ::fstat(file, &facts) != 0) notRead(path);
    if (S_ISDIR(facts.st_mode)) failed(path, "read", EISDIR);
    if (!S_ISREG(facts.st_mode)) failed(path, "read", ESPIPE);
    if (static_cast<std::uintmax_t>(facts.st_size) > max) failed(path, "read", EFBIG);
    std::string bytes(static_cast<std::size_t>(facts.st_size), '\0');
    std::size_t filled = 0;
    while (filled < bytes.size()) {
        const auto got = ::read(file, bytes.data() + filled, bytes.size() - filled);
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) notRead(path);
        if (got == 0) break;
        filled += static_cast<std::size_t>(got);
    }
    bytes.resize(filled);
    return bytes;
}

void writeWhole(const std::filesystem::path& path, std::string_view bytes) {
    NewFile file(path);
    file.begin();
    file.append(bytes);
    file.takePlace();
    flushFolder(folderOf(path));
}

void copy(const std::filesystem::path& from, const std::filesystem::path& to) {
    const Descriptor file(::open(from.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat facts {};
    if (file < 0 || ::fstat(file, &facts) != 0) notRead(from);
    if (!S_ISREG(facts.st_mode)) failed(from, "read", ESPIPE);
    createFolder(folderOf(to));
    NewFile made(to);
    made.begin();
    std::string part(std::size_t{1} << 20, '\0');
    while (true) {
        const auto got = ::read(file, part.data(), part.size());
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) notRead(from);
        if (got == 0) break;
        made.append(std::string_view(part).substr(0, static_cast<std::size_t>(got)));
    }
    made.takePlace();
    flushFolder(folderOf(to));
}

void createFolder(const std::filesystem::path& path) {
    std::error_code error;
    std::filesystem::create_directories(path, error);
    if (error) failed(path, "created", error.value());
}

std::optional<std::filesystem::path> inside(const std::filesystem::path& folder,
                                            const std::filesystem::path& name) {
    std::error_code failed;
    const auto within = std::filesystem::weakly_canonical(folder, failed);
    if (failed) return std::nullopt;
    const auto found = std::filesystem::weakly_canonical(within / name.relative_path(), failed);
    if (failed) return std::nullopt;
    const auto [left, _] = std::mismatch(within.begin(), within.end(), found.begin(), found.end());
    return left == within.end() ? std::optional(found) : std::nullopt;
}

}
