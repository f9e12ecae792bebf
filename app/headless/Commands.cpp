#include "app/headless/Commands.h"

#include "app/options/Paths.h"
#include "core/ai/Spending.h"
#include "core/intake/Intake.h"
#include "core/intake/Markers.h"
#include "core/intake/SourceFinder.h"
#include "core/intake/Sources.h"
#include "core/model/ProjectSummary.h"
#include "core/model/package/Activity.h"
#include "core/model/package/PackageLock.h"
#include "core/model/package/ProjectPackage.h"
#include "platform/base/Problem.h"
#include "platform/base/SystemError.h"
#include "platform/base/Text.h"
#include "platform/media/MediaFile.h"
#include "platform/vision/SubjectMask.h"

#include <cstdio>

#include <fmt/format.h>

namespace murbo {

namespace {

namespace fs = std::filesystem;

bool isOption(const std::string& word) {
    return word.starts_with("--");
}

/// The words up to the next option, as paths.
std::vector<fs::path> pathsUpToOption(Commands::Words::const_iterator from,
                                      Commands::Words::const_iterator end) {
    std::vector<fs::path> paths;
    std::transform(from, std::find_if(from, end, isOption), std::back_inserter(paths), Paths::absolute);
    return paths;
}

/// Why a file that a person named did not become footage; nothing for folders, of which only the movies
/// count.
std::optional<std::string> whyRefused(const fs::path& named) {
    std::error_code unknown;
    if (fs::is_directory(named, unknown)) return {};
    if (!Intake::isMovie(named))
        return "“" + named.filename().string() + "” was left out: its name is not that of a movie.";
    return fs::exists(named, unknown) ? std::nullopt : Commands::whyUnusable(named);
}

void remarkRefused(const std::vector<fs::path>& named, const std::vector<fs::path>& movies) {
    for (const auto& path : named)
        if (const auto why = whyRefused(path)) Commands::remark(*why);
    for (const auto& path : movies)
        if (const auto why = Commands::whyUnusable(path)) Commands::remark(*why);
}

/// The markers file that the words name or that lies beside the recording.
std::optional<fs::path> markersFile(const fs::path& recording, const Commands::Words& words) {
    if (words.size() > 2 && !isOption(words[2])) return Paths::absolute(words[2]);
    return Markers::find(recording);
}

std::size_t clipsOn(const UUID& source, const Project& project) {
    const auto& clips = *project.clips;
    return static_cast<std::size_t>(
        std::count_if(clips.begin(), clips.end(), [&](const Clip& clip) { return clip.source == source; }));
}

}

void Commands::print(const std::string& line) {
    std::fwrite(line.data(), 1, line.size(), stdout);
    std::fputc('\n', stdout);
    // A reader that reads no further is no failure.
    if (std::fflush(stdout) != 0 && errno != EPIPE)
        throw Problem("The output could not be written: " + SystemError::cause(errno) + ".");
}

Commands::Opened Commands::open(const std::string& word) {
    auto package = Paths::absolute(word);
    auto project = ProjectPackage::read(package);
    auto missing = SourceFinder::find(project);
    return {std::move(package), std::move(project), std::move(missing)};
}

void Commands::remark(const std::string& line) {
    std::fputs((line + "\n").c_str(), stderr);
}

std::optional<std::string> Commands::whyUnusable(const fs::path& file) try {
    if (!Text::isUtf8(file.string()))
        return "“" + Text::repaired(file.filename().string()) +
               "” can't be used: its name, or that of a folder it is in, is not in UTF-8. Rename it.";
    if (MediaFile::facts(file).length > 0) return {};
    return "“" + file.filename().string() + "” has no length that could be read.";
} catch (const Problem& problem) {
    return problem.message();
}

void Commands::spent(const Arguments&, const Words& words) {
    const auto package = Paths::absolute(words[0]);
    ProjectPackage::read(package); // says what is wrong where it is no package
    auto text = Spending::summary(Activity::read(package));
    text.pop_back(); // the line break that printing adds
    print(text);
}

void Commands::version(const Arguments&, const Words&) {
    print("Murbo " MURBO_VERSION);
    if (!SubjectMask::available())
        print("Cut-outs leave their pictures whole: what finds people in them is not installed.");
}

void Commands::create(const Arguments&, const Words& words) {
    ProjectPackage::create(Paths::absolute(words[0]));
}

void Commands::summary(const Arguments&, const Words& words) {
    const auto opened = open(words[0]);
    print(ProjectSummary::text(opened.project, opened.missing));
}

void Commands::addFiles(const Arguments&, const Words& words) {
    const auto lock = PackageLock::lock(Paths::absolute(words[0]));
    auto [package, project, missing] = open(words[0]);
    const auto before = project;
    const auto given = pathsUpToOption(words.begin() + 1, words.end());
    const auto movies = Intake::videos(given);
    const auto files = Intake::lengths(movies);
    if (files.size() < movies.size() || movies.size() < given.size()) remarkRefused(given, movies);
    std::vector<fs::path> kept;
    for (const auto& file : files) kept.push_back(file.path);
    Sources::add(project, files, Intake::groupName(kept), Source::Kind::file);
    ProjectPackage::write(project, package, &before);
    print(fmt::format("added {} files; {} clips in all", files.size(), project.clips.size()));
}

void Commands::addStream(const Arguments&, const Words& words) {
    const auto lock = PackageLock::lock(Paths::absolute(words[0]));
    auto [package, project, missing] = open(words[0]);
    const auto before = project;
    const auto recording = Paths::absolute(words[1]);
    const auto name = recording.filename().string();
    const auto measured = Intake::lengths({recording});
    if (measured.empty()) {
        if (const auto why = whyUnusable(recording)) remark(*why);
        throw Problem(name + " could not be read.");
    }
    const auto markers = markersFile(recording, words);
    Sources::StreamNotes notes;
    if (markers) notes = {Text::repaired(markers->filename().string()), Markers::text(*markers), {}};
    const auto source = Sources::addStream(project, measured.front(), notes);
    ProjectPackage::write(project, package, &before);
    print(fmt::format("added {}: {} clips from {}", name, clipsOn(source, project),
                      notes.markersName.value_or("no markers")));
}

}
