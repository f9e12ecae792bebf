#pragma once

#include "platform/base/Descriptor.h"

#include <filesystem>

namespace murbo {

/// A file that is being written where nobody sees it, and takes its place as a whole. Where the file system
/// can, it has no name until then, so that even a killed program leaves nothing; elsewhere it stands
/// hidden beside its place and goes with this object; the next one takes over what a killed program left.
class UnfinishedFile {
public:
    /// A symbolic link stays, and the file it names is written. Throws Problem where the place can't be
    /// written, or holds something other than a file.
    explicit UnfinishedFile(const std::filesystem::path& destination, bool named = false);
    UnfinishedFile(const UnfinishedFile&) = delete;
    UnfinishedFile& operator=(const UnfinishedFile&) = delete;
    ~UnfinishedFile();

    int descriptor() const { return file; }

    /// Brings all to the disk and puts the file in its place, over what stands there. Throws Problem.
    void finish();

    /// The problem of writing this file, with the system's reason.
    [[noreturn]] void fail(int error) const;

private:
    void refuseWithoutFolder() const;
    void openNamed();
    bool tookFreePlace();
    void takeName();

    std::filesystem::path destination;
    std::filesystem::path temporary; ///< empty while the file has no name
    Descriptor file;
};

}
