#include "core/model/package/PackageCopy.h"

#include "core/model/package/ProjectPackage.h"
#include "platform/base/Files.h"
#include "platform/base/SystemError.h"
#include "platform/base/UUID.h"

#include <cerrno>
#include <system_error>

#include <fcntl.h>
#include <fmt/format.h>
#include <stdio.h>

namespace murbo::PackageCopy {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void failed(const fs::path& package, const std::string& cause) {
    throw Problem(fmt::format("{} could not be copied: {}.", ProjectError::quotedName(package), cause));
}

/// A folder that is gone again unless it got its place.
class Unfinished {
public:
    explicit Unfinished(const fs::path& place)
        : path(fs::absolute(place).parent_path() /
               fmt::format(".{}.{}", place.filename().string(), UUID::make().text())) {
        Files::createFolder(path);
    }
    Unfinished(const Unfinished&) = delete;
    ~Unfinished() {
        std::error_code error;
        fs::remove_all(path, error);
    }

    const fs::path path;
};

void copyEntry(const fs::directory_entry& entry, const fs::path& to, std::error_code& error) {
    const auto status = entry.symlink_status(error);
    if (fs::is_symlink(status))
        fs::copy_symlink(entry.path(), to, error);
    else if (fs::is_directory(status))
        fs::create_directory(to, entry.path(), error);
    else if (fs::is_regular_file(status))
        fs::copy_file(entry.path(), to, error);
}

void copyAll(const fs::path& from, const fs::path& to, const std::stop_token& stop) {
    std::error_code error;
    for (fs::recursive_directory_iterator entry(from, error), end; !error && entry != end;
         entry.increment(error)) {
        if (stop.stop_requested()) failed(from, "it was stopped");
        copyEntry(*entry, to / entry->path().lexically_relative(from), error);
        if (error) break;
    }
    if (error) failed(from, SystemError::cause(error.value()));
}

/// As a move that refuses to take the place of anything, at one stroke where the file system knows how.
void takePlace(const fs::path& made, const fs::path& place) {
    if (::renameat2(AT_FDCWD, made.c_str(), AT_FDCWD, place.c_str(), RENAME_NOREPLACE) == 0) return;
    if (errno == EEXIST || errno == ENOTEMPTY) throw ProjectError(ProjectError::Kind::exists, place);
    if (errno != EINVAL && errno != ENOSYS) failed(place, SystemError::cause(errno));
    std::error_code error;
    if (fs::exists(fs::symlink_status(place, error))) throw ProjectError(ProjectError::Kind::exists, place);
    fs::rename(made, place, error);
    if (error) failed(place, SystemError::cause(error.value()));
}

}

void make(const fs::path& from, const fs::path& to, const Project& project, const std::stop_token& stop) {
    std::error_code error;
    if (fs::exists(fs::symlink_status(to, error))) throw ProjectError(ProjectError::Kind::exists, to);
    const auto within = fs::absolute(to).lexically_relative(fs::absolute(from));
    if (!within.empty() && *within.begin() != "..") failed(from, "the copy would lie within it");
    const Unfinished unfinished(to);
    copyAll(from, unfinished.path, stop);
    ProjectPackage::write(project, unfinished.path, nullptr);
    takePlace(unfinished.path, to);
}

}
