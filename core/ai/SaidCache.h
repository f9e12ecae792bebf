#pragma once

#include "core/ai/Said.h"
#include "core/model/Project.h"

#include <map>
#include <memory>

namespace murbo {

/// The `Said` of a project, made anew only where its sources or transcripts are other ones than last time, or
/// its clips lie elsewhere; where only words changed and nobody else holds it, it takes those alone. One
/// thread at a time.
class SaidCache {
public:
    std::shared_ptr<const Said> of(const Project& project);

private:
    bool samePlaces(const Project& project) const;
    bool sameTranscripts(const Project& project) const;

    List<Source> sources;
    List<Clip> clips;
    std::map<UUID, Transcript> transcripts;
    std::shared_ptr<Said> kept;
};

}
