#include "core/intake/transcription/Transcripts.h"

#include "core/model/Project.h"

namespace murbo {

void Transcripts::replaceLines(Project& project, const UUID& source, double start, double end,
                               std::vector<Line> lines) {
    auto& all = project.transcripts[source].lines.edit();
    std::erase_if(all, [&](const Line& line) { return start <= line.middle() && line.middle() < end; });
    std::move(lines.begin(), lines.end(), std::back_inserter(all));
    std::stable_sort(all.begin(), all.end(), [](auto& one, auto& other) { return one.start < other.start; });
}

}
