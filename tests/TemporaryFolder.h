#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

namespace murbo {

/// A new, empty folder that goes with its test.
class TemporaryFolder {
public:
    TemporaryFolder() {
        auto pattern = (std::filesystem::temp_directory_path() / "murbo-test-XXXXXX").string();
        if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary folder");
        path = pattern;
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    ~TemporaryFolder() {
        std::error_code error;
        std::filesystem::remove_all(path, error);
    }

    std::filesystem::path operator/(const std::filesystem::path& name) const { return path / name; }

    /// Writes a file, with the folders above it.
    std::filesystem::path file(const std::filesystem::path& name, std::string_view bytes = "") const {
        const auto whole = path / name;
        std::filesystem::create_directories(whole.parent_path());
        std::ofstream(whole, std::ios::binary) << bytes;
        return whole;
    }

    std::filesystem::path path;
};

/// The bytes of a file; none where it can't be read.
inline std::string contentsOf(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

/// How many files and folders stand right in a folder.
inline std::ptrdiff_t entriesIn(const std::filesystem::path& folder) {
    return std::distance(std::filesystem::directory_iterator(folder), {});
}

}
