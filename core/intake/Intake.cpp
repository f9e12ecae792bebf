#include "core/intake/Intake.h"

#include "platform/base/Names.h"
#include "platform/base/Problem.h"
#include "platform/base/Text.h"
#include "platform/media/MediaFile.h"

#include <unicode/datefmt.h>

namespace murbo {

namespace {

namespace fs = std::filesystem;

const std::set<std::string_view> movieExtensions = {
    ".mov",  ".qt",   ".mp4",  ".mpg4", ".mp4v", ".m4v", ".3gp", ".3gpp", ".3g2",
    ".3gp2",                                                                      // MPEG-4 and its kin
    ".mkv",  ".mk3d", ".webm",                                                    // Matroska
    ".avi",  ".divx", ".wmv",  ".asf",  ".flv",  ".f4v", ".ogv", ".ogm",          // players
    ".mpg",  ".mpeg", ".mpe",  ".m1v",  ".m2v",  ".m2p", ".vob", ".mod",  ".tod", // MPEG programme streams
    ".ts",   ".m2t",  ".mts",  ".m2ts", ".trp",                                   // and transport streams
    ".dv",   ".dif",  ".mxf",  ".insv", ".y4m",  ".nut"};

/// Folders that a desktop shows as one document or program.
const std::set<std::string_view> packageExtensions = {
    ".mbproj",       ".mbplay",       ".app",        ".bundle",        ".framework",     ".plugin",
    ".appdir",       ".fcpbundle",    ".fcpproject", ".imovielibrary", ".imovieproject", ".photoslibrary",
    ".photolibrary", ".aplibrary",    ".dvdmedia",   ".rtfd",          ".pkg",           ".logicx",
    ".band",         ".theater",      ".tvlibrary",  ".musiclibrary",  ".motn",          ".key",
    ".xcodeproj",    ".sparsebundle", ".dvdproj"};

std::string extension(const fs::path& name) {
    return Text::lowercased(name.extension().string());
}

bool isHidden(const fs::path& name) {
    return name.filename().string().starts_with('.');
}

constexpr std::size_t maxEntries = 4'000'000; ///< that a search looks at

/// The movies found so far, and whether to go on.
struct MovieSearch {
    const std::stop_token& stop;
    std::size_t max;
    std::vector<fs::path> found = {};
    std::size_t entries = 0;

    bool isOver() const { return stop.stop_requested() || found.size() >= max || entries >= maxEntries; }
};

/// The entries of one folder; none where it can't be read.
std::vector<fs::directory_entry> entries(const fs::path& folder, MovieSearch& search) {
    std::vector<fs::directory_entry> result;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end && !search.isOver();
         entry.increment(error)) {
        result.push_back(*entry);
        ++search.entries;
    }
    return result;
}

/// Whether the walk goes down there. Never through a link: that could lead round in a circle, or to the same
/// file twice.
bool isPlainFolder(const fs::directory_entry& entry) {
    std::error_code error;
    return entry.symlink_status(error).type() == fs::file_type::directory &&
           !packageExtensions.contains(extension(entry.path()));
}

void addMovies(const fs::path& root, MovieSearch& search) {
    std::vector<fs::path> folders = {root}; // a list rather than a recursion: no depth is too deep
    while (!folders.empty() && !search.isOver()) {
        const auto folder = std::move(folders.back());
        folders.pop_back();
        for (const auto& entry : entries(folder, search)) {
            std::error_code error;
            if (isHidden(entry.path())) continue;
            if (isPlainFolder(entry))
                folders.push_back(entry.path());
            else if (Intake::isMovie(entry.path()) && !entry.is_directory(error) &&
                     search.found.size() < search.max)
                search.found.push_back(entry.path());
        }
    }
}

/// Seconds; 0 for what is no readable media file: whoever asked compares the counts.
double length(const fs::path& file) try {
    // A project's texts are UTF-8: one oddly named file must not keep it from being saved.
    return Text::isUtf8(file.string()) ? MediaFile::facts(file).length : 0;
} catch (const Problem&) {
    return 0;
}

std::string now() {
    const std::unique_ptr<icu::DateFormat> format(
        icu::DateFormat::createDateTimeInstance(icu::DateFormat::kMedium, icu::DateFormat::kShort));
    icu::UnicodeString formatted;
    if (format) format->format(icu::Calendar::getNow(), formatted);
    std::string text;
    return formatted.toUTF8String(text);
}

/// The last component of the path to a file's folder.
std::string folderName(const fs::path& file) {
    const auto folder = file.parent_path();
    return folder.has_filename() ? folder.filename().string() : folder.string();
}

}

std::vector<std::string> Intake::movieEndings() {
    std::vector<std::string> endings;
    for (const auto ending : movieExtensions) endings.emplace_back(ending.substr(1));
    return endings;
}

bool Intake::isMovie(const fs::path& name) {
    return movieExtensions.contains(extension(name));
}

std::vector<fs::path> Intake::videos(const std::vector<fs::path>& given, const std::stop_token& stop,
                                     std::size_t max) {
    MovieSearch search{stop, max};
    for (const auto& path : given) {
        if (search.isOver()) break;
        std::error_code error;
        const auto status = fs::status(path, error);
        if (fs::is_directory(status))
            addMovies(path, search);
        else if (fs::exists(status) && isMovie(path))
            search.found.push_back(path);
    }
    Names::sort(search.found);
    return std::move(search.found);
}

std::vector<MeasuredFile> Intake::lengths(const std::vector<fs::path>& files) {
    std::vector<MeasuredFile> measured;
    for (const auto& file : files) {
        const double seconds = length(file);
        if (std::isfinite(seconds) && seconds > 0) measured.push_back({file, seconds});
    }
    return measured;
}

std::string Intake::groupName(const std::vector<fs::path>& files) {
    std::set<std::string> names;
    for (const auto& file : files) names.insert(folderName(file));
    return names.size() == 1 ? *names.begin() : "Added " + now();
}

}
