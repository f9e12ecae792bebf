#pragma once

#include "platform/base/Data.h"

#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace murbo {

/// What belongs to the person and to no project: values by key in one JSON file. Reading never fails: a value
/// that is missing, of another kind or unreadable is no value. Several processes may use one file at once,
/// each changing its own keys; any thread may use a store.
class SettingsStore {
public:
    explicit SettingsStore(std::filesystem::path file);
    ~SettingsStore();

    /// The user's own store, "murbo/settings.json" in XDG_CONFIG_HOME or else in ".config" of the home
    /// folder.
    static SettingsStore& standard();

    std::optional<std::string> text(const std::string& key) const;
    std::optional<double> number(const std::string& key) const; ///< always finite
    std::optional<bool> boolean(const std::string& key) const;
    std::optional<Data> data(const std::string& key) const;
    std::optional<std::vector<std::string>> texts(const std::string& key) const;
    std::optional<std::map<std::string, std::string>> textMap(const std::string& key) const;

    /// Writes one value and leaves the others as they stand in the file by then. Throws a Problem where the
    /// file can't be written. A file that can't be read as settings is kept beside it, ending in ".damaged".
    void set(const std::string& key, const std::string& value);
    void set(const std::string& key, const char* value) { set(key, std::string(value)); }
    void set(const std::string& key, double value);
    void set(const std::string& key, bool value);
    void set(const std::string& key, const Data& value);
    void set(const std::string& key, const std::vector<std::string>& value);
    void set(const std::string& key, const std::map<std::string, std::string>& value);
    void remove(const std::string& key);

private:
    struct OpenSettings;
    const std::unique_ptr<OpenSettings> parts;
};

}
