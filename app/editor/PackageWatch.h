#pragma once

#include "core/model/Project.h"

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>

namespace murbo {

/// Notices whether anybody else has written to a package since it was last looked at: a few looks at files,
/// and none into them.
class PackageWatch {
public:
    explicit PackageWatch(std::filesystem::path package) : folder(std::move(package)) {}

    /// Takes the package's files as they are now for ours.
    void remember(const Project& project);

    /// How the package is, compared with what was remembered.
    enum class Since {
        ours,    ///< as it was
        touched, ///< other files stand there, or none
        gone     ///< there is no package any more
    };
    Since state() const;

    /// Copies the package as it stands, its cache left out, beside it under a name that is free. Its path.
    std::filesystem::path copyBeside() const;

private:
    /// What differs between two states of a file, known without reading it.
    struct PackageStamp {
        std::uint64_t device = 0;
        std::uint64_t file = 0;
        std::int64_t size = -1;   ///< none where there is no file
        std::int64_t changed = 0; ///< nanoseconds
        bool operator==(const PackageStamp&) const = default;
    };

    static PackageStamp stamp(const std::filesystem::path& file);

    std::filesystem::path folder;
    std::map<std::filesystem::path, PackageStamp> stamps;
};

}
