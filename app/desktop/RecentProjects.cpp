#include "app/desktop/RecentProjects.h"

#include "app/desktop/documents/ProjectCards.h"
#include "core/model/package/ProjectPackage.h"
#include "platform/base/Problem.h"
#include "platform/store/SettingsStore.h"

#include <QDateTime>
#include <QFileInfo>
#include <QLocale>
#include <algorithm>

namespace murbo::RecentProjects {
namespace {

constexpr const char* recentKey = "recentProjects";
constexpr const char* openKey = "openProjects";

std::vector<std::filesystem::path> read(const char* key) {
    std::vector<std::filesystem::path> paths;
    for (const auto& text : SettingsStore::standard().texts(key).value_or(std::vector<std::string>()))
        paths.emplace_back(text);
    return paths;
}

/// Settings that can't be written keep no project from opening.
void write(const char* key, const std::vector<std::filesystem::path>& paths) {
    std::vector<std::string> texts;
    for (const auto& path : paths) texts.push_back(path.string());
    try {
        SettingsStore::standard().set(key, texts);
    } catch (const Problem&) {
        return;
    }
}

}

std::vector<std::filesystem::path> all() {
    return read(recentKey);
}

void add(const std::filesystem::path& package) {
    auto paths = all();
    std::erase(paths, package);
    paths.insert(paths.begin(), package);
    if (paths.size() > maxProjects) paths.resize(maxProjects);
    write(recentKey, paths);
}

void remove(const std::filesystem::path& package) {
    auto paths = all();
    std::erase(paths, package);
    write(recentKey, paths);
}

QVariantList shown() {
    QVariantList list;
    for (const auto& path : all()) {
        const QFileInfo file(QString::fromStdString((path / "project.json").string()));
        list.append(QVariantMap{
            {"path", QString::fromStdString(path.string())},
            {"name", QString::fromStdString(path.stem().string())},
            {"folder", QString::fromStdString(path.parent_path().string())},
            {"picture", ProjectCards::address(QString::fromStdString(path.string()))},
            {"missing", !file.exists()},
            {"date",
             file.exists() ? QLocale().toString(file.lastModified().date(), QLocale::ShortFormat) : ""}});
    }
    return list;
}

std::vector<std::filesystem::path> open() {
    return read(openKey);
}

void setOpen(const std::vector<std::filesystem::path>& packages) {
    write(openKey, packages);
}

}
