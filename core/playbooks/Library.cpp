#include "core/playbooks/Library.h"

#include "core/model/ModelCodec.h"
#include "platform/base/Files.h"
#include "platform/base/HomeFolder.h"
#include "platform/base/Names.h"
#include "platform/base/Problem.h"
#include "platform/base/Text.h"
#include "platform/store/SettingsStore.h"

namespace murbo::Library {
namespace {

constexpr std::size_t maxStylesBytes = std::size_t{4} << 20;

std::mutex overrideLock;
std::optional<std::filesystem::path> overrideFolder;

/// The folder that a setting names, or else one of the library.
std::filesystem::path chosen(const std::string& setting, const std::filesystem::path& otherwise) {
    const auto text = SettingsStore::standard().text(setting);
    return text && !text->empty() ? std::filesystem::path(*text) : otherwise;
}

bool isAudio(const std::filesystem::path& file) {
    static const std::set<std::string> extensions{".mp3", ".wav", ".m4a",  ".aac",  ".flac",
                                                  ".ogg", ".aif", ".opus", ".aiff", ".caf"};
    return extensions.contains(Text::lowercased(file.extension().string()));
}

bool isHidden(const std::filesystem::path& path) {
    return path.filename().string().starts_with('.');
}

std::vector<std::filesystem::directory_entry> entries(const std::filesystem::path& folder) {
    std::vector<std::filesystem::directory_entry> found;
    std::error_code error;
    for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error))
        if (!isHidden(entry->path())) found.push_back(*entry);
    return found;
}

void addFiles(const std::filesystem::path& folder, const std::string& name, std::vector<AudioFile>& files) {
    std::error_code error;
    for (const auto& entry : entries(folder))
        if (entry.is_regular_file(error) && isAudio(entry.path())) files.push_back({name, entry.path()});
}

}

void setOverride(std::optional<std::filesystem::path> folder) {
    const std::lock_guard held(overrideLock);
    overrideFolder = std::move(folder);
}

std::filesystem::path folder() {
    {
        const std::lock_guard held(overrideLock);
        if (overrideFolder) return *overrideFolder;
    }
    return chosen("libraryFolder", homeFolder() / "Movies" / "Murbo");
}

std::filesystem::path playbooks() {
    return folder() / "Playbooks";
}

std::filesystem::path stylesFile() {
    return folder() / "Caption Styles.json";
}

std::filesystem::path sounds() {
    return chosen("soundsFolder", folder() / "Sounds");
}

std::filesystem::path music() {
    return chosen("musicFolder", folder() / "Music");
}

std::vector<CaptionStyle> styles() {
    try {
        return Codec::decode<std::vector<CaptionStyle>>(Files::readWhole(stylesFile(), maxStylesBytes));
    } catch (const Problem&) {
        return {};
    }
}

void save(const std::vector<CaptionStyle>& styles) {
    const auto text = Codec::encode(styles);
    Files::createFolder(stylesFile().parent_path());
    Files::writeWhole(stylesFile(), text);
}

std::vector<AudioFile> audioFiles(const std::filesystem::path& folder) {
    std::vector<AudioFile> files;
    addFiles(folder, "", files);
    std::error_code error;
    for (const auto& entry : entries(folder))
        if (entry.is_directory(error)) addFiles(entry.path(), entry.path().filename().string(), files);
    std::sort(files.begin(), files.end(), [](const AudioFile& a, const AudioFile& b) {
        if (a.folder != b.folder) return Names::before(a.folder, b.folder);
        return Names::before(a.file.filename().string(), b.file.filename().string());
    });
    return files;
}

}
