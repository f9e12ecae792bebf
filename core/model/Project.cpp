#include "core/model/Project.h"

#include <algorithm>

namespace murbo {

const Source* Project::source(const UUID& id) const {
    const auto found =
        std::find_if(sources.begin(), sources.end(), [&](const auto& one) { return one.id == id; });
    return found == sources.end() ? nullptr : &*found;
}

const Transcript& Project::transcript(const UUID& source) const {
    static const Transcript nothing;
    const auto found = transcripts.find(source);
    return found == transcripts.end() ? nothing : found->second;
}

}
