#include "platform/media/UnfinishedFile.h"

#include "platform/base/Problem.h"
#include "platform/base/SiblingFile.h"
#include "platform/base/SystemError.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace murbo {

namespace {

std::filesystem::path folderOf(const std::filesystem::path& path) {
    const auto parent = path.parent_path();
    return parent.empty() ? std::filesystem::path(".") : parent;
}

constexpr const char* ending = "unfinished";
// Another writer may take a name between one call and the next.
constexpr int maxTries = 100;

int link(int file, const std::filesystem::path& path) {
    const std::string own = "/proc/self/fd/" + std::to_string(file);
    return ::linkat(AT_FDCWD, own.c_str(), AT_FDCWD, path.c_str(), AT_SYMLINK_FOLLOW) == 0 ? 0 : errno;
}

}

UnfinishedFile::UnfinishedFile(const std::filesystem::path& place, bool named)
    : destination(SiblingFile::followed(place)) {
    if (!destination.has_filename()) fail(EISDIR);
    SiblingFile::refuseUnlessFile(destination);
    refuseWithoutFolder();
    if (!named)
        file = Descriptor(::open(folderOf(destination).c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, 0666));
    if (file < 0) openNamed();
    // Once it has a name, nobody else may take it for one that was left behind.
    if (temporary.empty()) ::flock(file, LOCK_EX | LOCK_NB);
}

UnfinishedFile::~UnfinishedFile() {
    if (!temporary.empty()) ::unlink(temporary.c_str());
}

void UnfinishedFile::refuseWithoutFolder() const {
    std::error_code unknown;
    const auto folder = folderOf(destination);
    if (std::filesystem::exists(folder, unknown) || unknown) return;
    throw Problem("“" + destination.filename().string() + "” could not be written: there is no folder “" +
                  folder.string() + "”.");
}

void UnfinishedFile::openNamed() {
    auto claimed = SiblingFile::claim(destination, ending);
    temporary = std::move(claimed.path);
    file = std::move(claimed.file);
    if (::ftruncate(file, 0) == 0) return;
    const int error = errno;
    ::unlink(temporary.c_str());
    fail(error);
}

// Where nothing is to be replaced, no other name is needed in between.
bool UnfinishedFile::tookFreePlace() {
    const int error = link(file, destination);
    if (error != 0 && error != EEXIST) fail(error);
    return error == 0;
}

// A file without a name can't replace another: it takes the name of one that can.
void UnfinishedFile::takeName() {
    for (int tries = 0; tries < maxTries; ++tries) {
        const auto claimed = SiblingFile::claim(destination, ending);
        ::unlink(claimed.path.c_str());
        const int error = link(file, claimed.path);
        if (error == EEXIST) continue;
        if (error != 0) fail(error);
        temporary = claimed.path;
        return;
    }
    fail(EBUSY);
}

void UnfinishedFile::finish() {
    if (::fsync(file) != 0) fail(errno);
    SiblingFile::refuseUnlessFile(destination);
    const bool placed = temporary.empty() && tookFreePlace();
    if (!placed && temporary.empty()) takeName();
    if (!placed && ::rename(temporary.c_str(), destination.c_str()) != 0) fail(errno);
    temporary.clear();
    // The new name itself is on the disk only once its folder is flushed.
    const Descriptor folder(::open(folderOf(destination).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (folder >= 0) ::fsync(folder);
}

void UnfinishedFile::fail(int error) const {
    throw Problem("“" + destination.filename().string() +
                  "” could not be written: " + SystemError::cause(error) + ".");
}

}
