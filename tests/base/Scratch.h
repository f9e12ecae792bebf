#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>

namespace murbo {

/// A folder of its own for one test, gone with it.
class Scratch {
public:
    Scratch() {
        auto name = (std::filesystem::temp_directory_path() / "murbo-test-XXXXXX").string();
        folder = ::mkdtemp(name.data());
    }
    Scratch(const Scratch&) = delete;
    ~Scratch() {
        std::error_code ignored;
        std::filesystem::remove_all(folder, ignored);
    }

    std::filesystem::path operator/(const std::string& name) const { return folder / name; }
    const std::filesystem::path& path() const { return folder; }

private:
    std::filesystem::path folder;
};

}
