#pragma once

#include <QVariantList>
#include <filesystem>
#include <vector>

namespace murbo {

/// The projects that were open lately, newest first, kept in the settings.
namespace RecentProjects {

inline constexpr std::size_t maxProjects = 12;

std::vector<std::filesystem::path> all();
void add(const std::filesystem::path& package);

void remove(const std::filesystem::path& package);

/// For views: path, name, folder, date, missing, the address of its picture.
QVariantList shown();

/// Those open now: the next start without words opens them again, after a crash too.
std::vector<std::filesystem::path> open();
void setOpen(const std::vector<std::filesystem::path>& packages);

}

}
