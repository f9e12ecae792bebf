#pragma once

#include "platform/base/Descriptor.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace murbo {

/// A file in the system's temporary folder that only this user may read, gone when this value goes. What a
/// killed process of ours left is removed when the next one is made.
class TemporaryFile {
public:
    /// An empty file, "murbo-", a new UUID and the extension (".wav"). Throws a Problem.
    static TemporaryFile make(std::string_view extension);

    TemporaryFile(TemporaryFile&&) noexcept = default;
    TemporaryFile& operator=(TemporaryFile&&) noexcept = delete;
    ~TemporaryFile();

    const std::filesystem::path& path() const { return place; }

    /// The file of that name but for the extension, which somebody else may make. It goes with this one.
    std::filesystem::path companion(std::string_view extension) const;

    /// Writes at a place in the file, in bytes. Throws a Problem.
    void write(std::string_view bytes, std::size_t at) const;

    /// Cuts the file to that number of bytes. Throws a Problem.
    void cutOff(std::size_t size) const;

private:
    TemporaryFile(std::filesystem::path path, Descriptor opened);

    std::filesystem::path place;
    Descriptor file; ///< locked: the sign that its owner lives
};

}
