#include "app/editor/ProjectDocument.h"

#include "core/intake/SourceFinder.h"
#include "core/model/package/ProjectPackage.h"
#include "platform/base/Problem.h"

#include <exception>

namespace murbo {

std::unique_ptr<ProjectDocument> ProjectDocument::open(const std::filesystem::path& package,
                                                       const SoundPlayer::MakeOutput& sound) {
    auto lock = PackageLock::lock(package);
    auto project = ProjectPackage::read(package);
    return std::unique_ptr<ProjectDocument>(
        new ProjectDocument(package, std::move(lock), std::move(project), sound));
}

ProjectDocument::ProjectDocument(const std::filesystem::path& package, PackageLock held, Project project,
                                 const SoundPlayer::MakeOutput& sound)
    : folder(package), lock(std::move(held)), saved(std::move(project)), watch(package) {
    watch.remember(saved);
    retrying.setInterval(retryTime);
    connect(&retrying, &QTimer::timeout, this, &ProjectDocument::retry);
    session = std::make_unique<Editor>(
        saved, SourceFinder::find(saved), folder, [this](const Project& changed) { save(changed); }, sound);
}

void ProjectDocument::save(const Project& project) {
    try {
        write(project);
        saved = project;
        watch.remember(saved);
        retrying.stop();
        if (std::exchange(failure, std::nullopt)) emit unsavedChanged();
    } catch (const std::exception& error) {
        fail(error.what());
    }
}

void ProjectDocument::write(const Project& project) {
    const auto state = watch.state();
    if (state == PackageWatch::Since::gone) throw Problem(name() + " is not in its place any more.");
    if (state == PackageWatch::Since::touched && !standsAsSaved()) putAside();
    try {
        ProjectPackage::write(project, folder, partlySaved ? nullptr : &saved);
        partlySaved = false;
    } catch (const std::exception&) {
        // Some files may be new and others old, and all are ours.
        partlySaved = true;
        watch.remember(project);
        throw;
    }
}

/// Whether the files, though others, say the same: a sync service may have put back what it took.
bool ProjectDocument::standsAsSaved() const {
    try {
        return !partlySaved && ProjectPackage::read(folder) == saved;
    } catch (const Problem&) {
        return false;
    }
}

void ProjectDocument::putAside() {
    const auto copy = watch.copyBeside();
    partlySaved = true;
    emit told(QString::fromStdString(name() + " was changed by another program. Its version is kept as “" +
                                     copy.filename().string() + "”."));
}

std::string ProjectDocument::name() const {
    return "“" + folder.filename().string() + "”";
}

void ProjectDocument::fail(const std::string& words) {
    retrying.start();
    const auto told = "Not saved: " + words + " Murbo goes on trying.";
    if (failure == told) return;
    failure = told;
    emit unsavedChanged();
    emit this->told(QString::fromStdString(told));
}

void ProjectDocument::retry() {
    save(session->project());
}

void ProjectDocument::close() {
    session->closeDrag();
    if (failure) retry();
    session->writeHistory();
}

}
