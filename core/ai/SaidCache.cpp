#include "core/ai/SaidCache.h"

#include <algorithm>

namespace murbo {
namespace {

/// Whether clips have the same tags and lie in the same places: what else they hold, nobody finds in a
/// `Said`.
bool sameClips(const List<Clip>& some, const List<Clip>& others) {
    return some.same(others) || std::ranges::equal(some, others, [](const Clip& one, const Clip& other) {
               return one.id == other.id && one.number == other.number && one.part == other.part &&
                      one.source == other.source && one.start == other.start && one.end == other.end;
           });
}

}

std::shared_ptr<const Said> SaidCache::of(const Project& project) {
    const bool samePieces = kept && samePlaces(project);
    if (samePieces && sameTranscripts(project)) return kept;
    const bool reworded = samePieces && transcripts.size() == project.transcripts.size() &&
                          kept.use_count() == 1 && kept->reword(project.transcripts);
    if (!reworded) kept = std::make_shared<Said>(project);
    sources = project.sources;
    clips = project.clips;
    transcripts = project.transcripts;
    return kept;
}

bool SaidCache::samePlaces(const Project& project) const {
    return sources.same(project.sources) && sameClips(clips, project.clips);
}

/// By identity: comparing lines would take as long as making it. Clips are few.
bool SaidCache::sameTranscripts(const Project& project) const {
    return std::ranges::equal(transcripts, project.transcripts, [](const auto& one, const auto& other) {
        return one.first == other.first && one.second.lines.same(other.second.lines) &&
               one.second.notes.same(other.second.notes);
    });
}

}
