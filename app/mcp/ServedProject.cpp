#include "app/mcp/ServedProject.h"

#include "core/intake/SourceFinder.h"
#include "core/intake/samples/Loudness.h"
#include "core/model/edits/ProjectOperations.h"
#include "core/model/package/ProjectPackage.h"
#include "platform/base/Files.h"
#include "platform/base/Problem.h"
#include "platform/base/Text.h"

#include <fmt/format.h>

namespace murbo {

namespace {

namespace fs = std::filesystem;

constexpr std::chrono::seconds historyDelay{1};
constexpr std::size_t mostMediaBytes = std::size_t{512} << 20; ///< of a sound

bool sameBytes(const fs::path& one, const fs::path& other) {
    std::error_code error;
    if (fs::file_size(one, error) != fs::file_size(other, error) || error) return false;
    return Files::readWhole(one, mostMediaBytes) == Files::readWhole(other, mostMediaBytes);
}

}

ServedProject::ServedProject(const fs::path& folder)
    : lock(PackageLock::lock(folder)),
      package(folder),
      live(ProjectPackage::read(folder)),
      missing(SourceFinder::find(live)),
      steps(ProjectPackage::readHistory(folder)) {
    historyWrite.setSingleShot(true);
    historyWrite.setInterval(historyDelay);
    connect(&historyWrite, &QTimer::timeout, this, &ServedProject::writeHistory);
}

ServedProject::~ServedProject() {
    writeHistory();
}

void ServedProject::commit(const std::string& name, Project changed) {
    if (changed == live) return;
    ProjectPackage::write(changed, package, &live);
    steps.record(name, live, changed);
    live = std::move(changed);
    historyWrite.start();
}

void ServedProject::undo() {
    const auto before = live;
    const auto mutes = ProjectOperations::mutes(live);
    if (!steps.undo(live)) return;
    ProjectOperations::keep(live, mutes);
    historyWrite.start();
    ProjectPackage::write(live, package, &before);
}

void ServedProject::writeHistory() {
    historyWrite.stop();
    try {
        ProjectPackage::writeHistory(steps, package);
    } catch (const Problem&) { // only the undo history is lost
    }
}

std::string ServedProject::keepMedia(const fs::path& file) {
    const auto media = package / "media";
    const auto stem = file.stem().string();
    const auto extension = file.extension().string();
    std::error_code ignored;
    for (int number = 1;; ++number) {
        const auto name = number == 1 ? stem + extension : fmt::format("{} {}{}", stem, number, extension);
        const auto to = media / name;
        if (!fs::exists(to, ignored)) Files::copy(file, to);
        if (sameBytes(file, to)) return "media/" + Text::repaired(name);
    }
}

std::map<UUID, std::vector<std::uint8_t>> ServedProject::loudness(const std::vector<UUID>& sources) {
    std::vector<Source> wanted;
    const std::lock_guard held(measuredLock);
    for (const auto& id : sources) {
        const auto* source = live.source(id);
        if (!source || missing.contains(id)) measured.try_emplace(id);
        if (source && asked.insert(id).second && !measured.contains(id)) wanted.push_back(*source);
    }
    if (!wanted.empty())
        measuring.emplace_back([this, wanted](const std::stop_token& stop) {
            for (const auto& source : wanted) {
                std::vector<std::uint8_t> levels;
                try {
                    levels = Loudness::of(source, package / "cache", stop).levels;
                } catch (const Problem&) { // what can't be read is silent
                }
                if (stop.stop_requested()) return;
                const std::lock_guard ready(measuredLock);
                measured[source.id] = std::move(levels);
            }
        });
    std::map<UUID, std::vector<std::uint8_t>> found;
    for (const auto& id : sources)
        if (const auto levels = measured.find(id); levels != measured.end()) found.insert(*levels);
    return found;
}

}
