#include "core/model/ProjectSummary.h"
#include "core/model/Tags.h"
#include "core/model/edits/ProjectOperations.h"
#include "tests/fuzz/RoundTrip.h"

using namespace murbo;

namespace {

/// A project in which two overlapping clips take the transcript up.
Project projectWith(const Transcript& transcript) {
    Project project;
    const auto& group = project.groups.edit().emplace_back();
    auto& source = project.sources.edit().emplace_back();
    source.group = group.id;
    for (const double start : {0.0, 5.0}) {
        auto& clip = project.clips.edit().emplace_back();
        clip.source = source.id;
        clip.number = ++project.lastClip;
        clip.start = start;
        clip.end = start + 10;
    }
    project.transcripts[source.id] = transcript;
    return project;
}

}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    const auto transcript = roundTrip<Transcript>(bytes, size);
    if (!transcript) return 0;
    const auto project = projectWith(*transcript);
    const auto source = project.sources[0].id;
    require(Tags::on(source, project).size() <= transcript->lines.size() + transcript->notes.size(),
            "too many tags");
    ProjectSummary::text(project, {});
    for (const auto& quiet : ProjectOperations::quiet(project, source, {0, 20}, 1))
        require(quiet.length() >= 1, "a quiet stretch is too short");
    return 0;
}
