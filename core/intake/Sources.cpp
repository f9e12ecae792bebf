#include "core/intake/Sources.h"

#include "core/intake/Markers.h"
#include "core/model/Project.h"

namespace murbo {

namespace {

/// Nobody sets more; a file that claims to hold more must not make a project too large to be opened again.
constexpr std::size_t maxMarkers = 100'000;

}

std::vector<UUID> Sources::add(Project& project, const std::vector<MeasuredFile>& files,
                               const std::string& group, Source::Kind kind, double wholeUpTo) {
    std::vector<UUID> added;
    const auto& made = project.groups.edit().emplace_back(SourceGroup{.name = group});
    for (const auto& [path, length] : files) {
        const auto& source = project.sources.edit().emplace_back(
            Source{.group = made.id, .path = path.string(), .kind = kind, .length = length});
        added.push_back(source.id);
        if (kind == Source::Kind::file && length <= wholeUpTo) Clips::append(project, source.id, 0, length);
    }
    return added;
}

UUID Sources::addStream(Project& project, const MeasuredFile& recording, const StreamNotes& notes,
                        ClipReach reach) {
    const auto id = add(project, {recording}, recording.path.stem().string(), Source::Kind::stream).front();
    auto& source = project.sources.edit().back();
    if (notes.markers) source.stream = Source::Stream{notes.markersName.value_or(""), *notes.markers};
    source.note = notes.note;
    auto marks = Markers::parse(notes.markers.value_or(""), recording.path.filename().string());
    marks.resize(std::min(marks.size(), maxMarkers));
    Clips::addAround(project, std::move(marks), id, reach);
    return id;
}

}
