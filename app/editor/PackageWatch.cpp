#include "app/editor/PackageWatch.h"

#include "platform/base/Files.h"

#include <sys/stat.h>

namespace murbo {

namespace fs = std::filesystem;

namespace {

/// Media never change once they are in a package, so that a second name for them will do.
void keep(const fs::path& file, const fs::path& place) {
    std::error_code error;
    if (file.extension() != ".json") {
        Files::createFolder(place.parent_path());
        fs::create_hard_link(file, place, error);
        if (!error) return;
    }
    Files::copy(file, place);
}

}

PackageWatch::PackageStamp PackageWatch::stamp(const fs::path& file) {
    struct stat facts {};
    if (::stat(file.c_str(), &facts) != 0) return {};
    return {facts.st_dev, facts.st_ino, facts.st_size,
            facts.st_mtim.tv_sec * 1'000'000'000 + facts.st_mtim.tv_nsec};
}

void PackageWatch::remember(const Project& project) {
    stamps.clear();
    const auto note = [this](const fs::path& file) { stamps[file] = stamp(file); };
    note(folder / "project.json");
    for (const auto& source : project.sources) note(folder / "transcripts" / (source.id.text() + ".json"));
}

PackageWatch::Since PackageWatch::state() const {
    std::error_code error;
    if (!fs::is_directory(folder, error)) return Since::gone;
    for (const auto& [file, remembered] : stamps)
        if (stamp(file) != remembered) return Since::touched;
    return Since::ours;
}

fs::path PackageWatch::copyBeside() const {
    const auto stem = folder.stem().string() + " (changed elsewhere";
    fs::path place;
    for (int number = 1;; ++number) {
        const auto counted = number > 1 ? stem + " " + std::to_string(number) : stem;
        place = folder.parent_path() / (counted + ")");
        place += folder.extension();
        std::error_code error;
        if (!fs::exists(fs::symlink_status(place, error))) break;
    }
    Files::createFolder(place);
    for (auto entry = fs::recursive_directory_iterator(folder); entry != fs::recursive_directory_iterator();
         ++entry) {
        const auto name = entry->path().lexically_relative(folder);
        if (entry->is_directory() && *name.begin() == "cache") entry.disable_recursion_pending();
        if (entry->is_regular_file()) keep(entry->path(), place / name);
    }
    return place;
}

}
