#pragma once

#include "core/model/ModelCodec.h"
#include "platform/base/Codec.h"
#include "tests/TemporaryFolder.h"

#include <filesystem>

namespace murbo {

/// Videos in all their forms over two sources without files: what is worked out of them is compared with what
/// was approved, as texts and as pictures.
inline Project approvedProject() {
    const auto folder = std::filesystem::path(MURBO_TESTS) / "approved";
    auto project = Codec::decode<Project>(contentsOf(folder / "project.json"));
    for (const auto& source : project.sources)
        project.transcripts[source.id] =
            Codec::decode<Transcript>(contentsOf(folder / (source.id.text() + ".json")));
    return project;
}

}
