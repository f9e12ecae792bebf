#include "platform/media/UnfinishedFile.h"

#include "platform/base/Files.h"
#include "platform/base/Problem.h"
#include "platform/base/UUID.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace murbo {

namespace {

std::filesystem::path folderOf(const std::filesystem::path& path) {
    const auto parent = path.parent_path();
    return parent.empty() ? std::filesystem::path(".") : parent;
}

// A name of a file is 255 bytes at most.
constexpr std::size_t longestKept = 200;

}

UnfinishedFile::UnfinishedFile(const std::filesystem::path& place, bool named) : destination(place) {
    std::error_code error;
    if (!place.has_filename() || std::filesystem::is_directory(place, error)) fail(EISDIR);
    if (!named) file = Descriptor(::open(folderOf(place).c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, 0666));
    if (file < 0) openNamed();
}

UnfinishedFile::~UnfinishedFile() {
    if (!temporary.empty()) ::unlink(temporary.c_str());
}

std::filesystem::path UnfinishedFile::beside() const {
    const std::string name = destination.filename().string().substr(0, longestKept);
    return folderOf(destination) / ("." + name + "." + UUID::make().text().substr(0, 8) + ".unfinished");
}

void UnfinishedFile::openNamed() {
    const auto path = beside();
    file = Descriptor(::open(path.c_str(), O_CREAT | O_EXCL | O_RDWR | O_CLOEXEC, 0666));
    if (file < 0) fail(errno);
    temporary = path;
}

void UnfinishedFile::finish() {
    if (::fsync(file) != 0) fail(errno);
    if (temporary.empty()) {
        const auto path = beside();
        const std::string own = "/proc/self/fd/" + std::to_string(file);
        if (::linkat(AT_FDCWD, own.c_str(), AT_FDCWD, path.c_str(), AT_SYMLINK_FOLLOW) != 0) fail(errno);
        temporary = path;
    }
    if (::rename(temporary.c_str(), destination.c_str()) != 0) fail(errno);
    temporary.clear();
    // The new name itself comes to the disk with its folder.
    const Descriptor folder(::open(folderOf(destination).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (folder >= 0) ::fsync(folder);
}

void UnfinishedFile::fail(int error) const {
    throw Problem("“" + destination.filename().string() + "” could not be written: " + Files::cause(error) +
                  ".");
}

}
