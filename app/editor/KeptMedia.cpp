#include "app/editor/KeptMedia.h"

#include "platform/base/Files.h"
#include "platform/base/Text.h"

#include <fstream>

namespace murbo {
namespace {

namespace fs = std::filesystem;

bool sameBytes(const fs::path& one, const fs::path& other) {
    std::error_code error;
    if (fs::file_size(one, error) != fs::file_size(other, error) || error) return false;
    std::ifstream first(one, std::ios::binary);
    std::ifstream second(other, std::ios::binary);
    constexpr std::size_t piece = 1 << 16;
    std::string here(piece, 0);
    std::string there(piece, 0);
    while (first && second) {
        first.read(here.data(), piece);
        second.read(there.data(), piece);
        const auto read = static_cast<std::size_t>(first.gcount());
        if (first.gcount() != second.gcount() || here.compare(0, read, there, 0, read) != 0) return false;
    }
    return true;
}

/// The first of the names that is free or holds the same.
fs::path nameFor(const fs::path& file, const fs::path& folder) {
    auto place = folder / file.filename();
    for (int number = 2; fs::exists(fs::symlink_status(place)) && !sameBytes(place, file); ++number)
        place = folder / (file.stem().string() + " " + std::to_string(number) + file.extension().string());
    return place;
}

}

std::optional<std::string> KeptMedia::keep(const fs::path& file, const std::string& folder,
                                           const std::optional<fs::path>& package) {
    if (!Text::isUtf8(file.string())) return {};
    if (!package) return file.string();
    try {
        if (!fs::is_regular_file(file)) return {};
        const auto home = *package / "media" / folder;
        std::error_code none;
        const bool there = fs::equivalent(file.parent_path(), home, none);
        const auto place = there ? home / file.filename() : nameFor(file, home);
        if (!fs::exists(place)) Files::copy(file, place);
        return "media/" + folder + "/" + place.filename().string();
    } catch (const std::exception&) {
        return {};
    }
}

std::string KeptMedia::failure(const fs::path& file) {
    return Text::repaired(file.filename().string()) + " could not be copied into the project";
}

}
