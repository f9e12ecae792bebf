#include "core/model/package/ProjectPackage.h"

#include "core/model/ModelCodec.h"
#include "platform/base/Files.h"
#include "platform/base/SiblingFile.h"

#include <exception>

namespace murbo::ProjectPackage {
namespace {

namespace fs = std::filesystem;

/// Some forty times ten hours of transcript; what is larger was not written by us.
constexpr std::size_t largestFile = 128 << 20;

/// What every version can read of `project.json`.
struct Header {
    std::int64_t format = 0;

    static constexpr auto fields(auto visit) { return visit(field("format", &Header::format)); }
};
static_assert(Record<Header>);

fs::path projectFile(const fs::path& package) {
    return package / "project.json";
}

fs::path transcriptFile(const fs::path& package, const UUID& source) {
    return package / "transcripts" / (source.text() + ".json");
}

/// Runs `work`; whatever goes wrong, a damaged package is what its owner has.
template <class Work>
auto orDamaged(const fs::path& package, Work work) {
    try {
        return work();
    } catch (const std::exception&) {
        std::throw_with_nested(ProjectError(ProjectError::Kind::damaged, package));
    }
}

Project readProject(const fs::path& package) {
    const auto json =
        orDamaged(package, [&] { return Json::parse(Files::readWhole(projectFile(package), largestFile)); });
    const auto header = orDamaged(package, [&] { return Codec::read<Header>(json.root()); });
    if (header.format > Project::currentFormat) throw ProjectError(ProjectError::Kind::newer, package);
    return orDamaged(package, [&] { return Codec::read<Project>(json.root()); });
}

void readTranscripts(Project& project, const fs::path& package) {
    for (const auto& source : project.sources) {
        const auto file = transcriptFile(package, source.id);
        std::error_code missing;
        if (fs::status(file, missing).type() == fs::file_type::not_found) continue;
        project.transcripts[source.id] = orDamaged(
            package, [&] { return Codec::decode<Transcript>(Files::readWhole(file, largestFile)); });
    }
}

/// What could not be read again must not take the place of what can.
void save(const fs::path& file, const std::string& text) {
    if (text.size() > largestFile) throw Problem("This project has grown too large to be saved.");
    Files::writeWhole(SiblingFile::followed(file), text);
}

/// The folders from the package upwards that are not there yet.
std::vector<fs::path> missingFolders(fs::path package) {
    std::vector<fs::path> missing;
    std::error_code unknown;
    for (; package.has_relative_path() && !fs::exists(package, unknown); package = package.parent_path())
        missing.push_back(package);
    return missing;
}

/// Whether both are the same in all that `project.json` holds.
bool sameInFile(const Project& one, const Project& other) {
    return Project::fields(
        [&](const auto&... field) { return ((one.*field.member == other.*field.member) && ...); });
}

bool sameTranscript(const Project* previous, const UUID& source, const Transcript& transcript) {
    if (!previous) return false;
    const auto found = previous->transcripts.find(source);
    return found != previous->transcripts.end() && found->second == transcript;
}

}

Project read(const fs::path& package) {
    auto project = readProject(package);
    readTranscripts(project, package);
    return project;
}

void write(const Project& project, const fs::path& package, const Project* previous) {
    std::error_code unknown;
    if (previous && !fs::is_directory(package, unknown))
        throw Problem(ProjectError::quotedName(package) +
                      " is no longer in its place. It was moved or deleted.");
    Files::createFolder(package);
    if (!previous || !sameInFile(project, *previous)) save(projectFile(package), Codec::encode(project));
    for (const auto& [source, transcript] : project.transcripts) {
        if (sameTranscript(previous, source, transcript)) continue;
        Files::createFolder(package / "transcripts");
        save(transcriptFile(package, source), Codec::encode(transcript));
    }
}

void create(const fs::path& package) {
    std::error_code unknown; // what can't be looked at can't be written to either, which says why
    if (fs::exists(fs::symlink_status(package, unknown)))
        throw ProjectError(ProjectError::Kind::exists, package);
    const auto made = missingFolders(package);
    try {
        write(Project(), package, nullptr);
    } catch (const Problem&) {
        for (const auto& folder : made) fs::remove(folder, unknown); // only those that are empty
        throw;
    }
}

}
