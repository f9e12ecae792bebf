#include "platform/store/SettingsStore.h"

#include "platform/base/Descriptor.h"
#include "platform/base/Files.h"
#include "platform/base/HomeFolder.h"
#include "platform/base/Problem.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <mutex>

#include <fcntl.h>
#include <nlohmann/json.hpp>
#include <sys/file.h>
#include <sys/stat.h>

namespace murbo {
namespace {

namespace fs = std::filesystem;
using nlohmann::json;

constexpr std::size_t largest = 16 << 20; // bytes; a price list is some 100 kB
constexpr int deepest = 32;               // levels; no setting needs more than three

/// The settings in a text, or none where it is no such text.
std::optional<json> parse(const std::string& text) {
    bool tooDeep = false;
    const auto watch = [&](int depth, json::parse_event_t, json&) { return !(tooDeep |= depth > deepest); };
    auto parsed = json::parse(text, watch, false);
    if (tooDeep || !parsed.is_object()) return std::nullopt;
    return parsed;
}

/// What sets one state of a file apart from another without reading it.
struct FileStamp {
    dev_t device = 0;
    ino_t inode = 0;
    off_t size = -1;
    timespec changed{};

    static FileStamp of(const fs::path& path) {
        struct stat facts {};
        if (::stat(path.c_str(), &facts) != 0) return {};
        return {facts.st_dev, facts.st_ino, facts.st_size, facts.st_mtim};
    }
    bool operator==(const FileStamp& other) const {
        return device == other.device && inode == other.inode && size == other.size &&
               changed.tv_sec == other.changed.tv_sec && changed.tv_nsec == other.changed.tv_nsec;
    }
};

fs::path standardFile() {
    const char* configured = std::getenv("XDG_CONFIG_HOME");
    if (configured && *configured == '/') return fs::path(configured) / "murbo/settings.json";
    const auto home = homeFolder();
    return home.empty() ? fs::path() : home / ".config/murbo/settings.json";
}

/// The file itself where the path is a link to it, as those who keep their settings in one place have it.
fs::path behindLinks(const fs::path& path) {
    std::error_code error;
    const auto target = fs::canonical(path, error);
    return error ? path : target;
}

/// Holds other processes off a file while it lives.
class FileLock {
public:
    explicit FileLock(const fs::path& path) : file(::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600)) {
        while (file >= 0 && ::flock(file, LOCK_EX) != 0 && errno == EINTR) {
        }
    }

private:
    Descriptor file;
};

void makeFolder(const fs::path& folder) {
    std::error_code error;
    if (fs::exists(folder, error)) return;
    Files::createFolder(folder);
    fs::permissions(folder, fs::perms::owner_all, error);
}

}

struct SettingsStore::OpenSettings {
    fs::path file;
    std::mutex guard;
    FileStamp stamp;
    json values = json::object();

    /// Has `values` be what the file holds by now. What can't be read holds nothing. Whether it could be
    /// read, or wasn't there.
    bool refresh() {
        const auto now = FileStamp::of(file);
        if (now == stamp && now.size >= 0) return true;
        values = json::object();
        stamp = {};
        if (now.size < 0) return true;
        auto read = readFile();
        if (!read) return false;
        values = std::move(*read);
        stamp = now;
        return true;
    }

    std::optional<json> readFile() const try {
        return parse(Files::readWhole(file, largest));
    } catch (const Problem&) {
        return std::nullopt;
    }

    std::optional<json> value(const std::string& key) {
        const std::lock_guard lock(guard);
        refresh();
        const auto found = values.find(key);
        return found == values.end() ? std::nullopt : std::optional<json>(*found);
    }

    void change(const std::string& key, std::optional<json> value) {
        if (file.empty()) throw Problem("The settings could not be kept: there is no home folder.");
        const std::lock_guard lock(guard);
        makeFolder(file.parent_path());
        const FileLock others(file.string() + ".lock");
        stamp = {}; // within one tick of the clock a file may change and look the same
        if (!refresh()) keepDamaged();
        if (value)
            values[key] = std::move(*value);
        else
            values.erase(key);
        Files::writeWhole(behindLinks(file), dumped() + "\n");
        stamp = {};
    }

    std::string dumped() const { return values.dump(2, ' ', false, json::error_handler_t::replace); }

    void keepDamaged() const {
        std::error_code error;
        fs::rename(file, file.string() + ".damaged", error);
    }
};

SettingsStore::SettingsStore(fs::path file) : parts(std::make_unique<OpenSettings>()) {
    parts->file = std::move(file);
}
SettingsStore::~SettingsStore() = default;

SettingsStore& SettingsStore::standard() {
    static SettingsStore store(standardFile());
    return store;
}

std::optional<std::string> SettingsStore::text(const std::string& key) const {
    const auto value = parts->value(key);
    return value && value->is_string() ? std::optional(value->get<std::string>()) : std::nullopt;
}

std::optional<double> SettingsStore::number(const std::string& key) const {
    const auto value = parts->value(key);
    if (!value || !value->is_number() || !std::isfinite(value->get<double>())) return std::nullopt;
    return value->get<double>();
}

std::optional<bool> SettingsStore::boolean(const std::string& key) const {
    const auto value = parts->value(key);
    return value && value->is_boolean() ? std::optional(value->get<bool>()) : std::nullopt;
}

std::optional<Data> SettingsStore::data(const std::string& key) const {
    const auto value = text(key);
    return value ? Data::parse(*value) : std::nullopt;
}

std::optional<std::vector<std::string>> SettingsStore::texts(const std::string& key) const {
    const auto value = parts->value(key);
    const auto isText = [](const json& each) { return each.is_string(); };
    if (!value || !value->is_array() || !std::all_of(value->begin(), value->end(), isText))
        return std::nullopt;
    return value->get<std::vector<std::string>>();
}

std::optional<std::map<std::string, std::string>> SettingsStore::textMap(const std::string& key) const {
    const auto value = parts->value(key);
    const auto isText = [](const json& each) { return each.is_string(); };
    if (!value || !value->is_object() || !std::all_of(value->begin(), value->end(), isText))
        return std::nullopt;
    return value->get<std::map<std::string, std::string>>();
}

void SettingsStore::set(const std::string& key, const std::string& value) {
    parts->change(key, value);
}
void SettingsStore::set(const std::string& key, double value) {
    parts->change(key, value);
}
void SettingsStore::set(const std::string& key, bool value) {
    parts->change(key, value);
}
void SettingsStore::set(const std::string& key, const Data& value) {
    parts->change(key, value.base64());
}
void SettingsStore::set(const std::string& key, const std::vector<std::string>& value) {
    parts->change(key, value);
}
void SettingsStore::set(const std::string& key, const std::map<std::string, std::string>& value) {
    parts->change(key, value);
}
void SettingsStore::remove(const std::string& key) {
    parts->change(key, std::nullopt);
}

}
