#pragma once

#include "core/model/Look.h"
#include "core/model/Project.h"
#include "core/render/VideoComposition.h"
#include "core/render/sound/SoundMix.h"

#include <filesystem>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace murbo {

/// What a player plays: pictures and sound on one clock from 0. Making one reads the heads of files, so it is
/// made off the main thread.
struct PlayerItem {
    VideoComposition composition;
    std::vector<SoundMix::Track> sound;

    /// A video as it is heard in the session: `soloed` lanes alone where there are any. Throws Problem where
    /// it can't be played.
    static PlayerItem video(const Video& video, const Project& project, const std::set<UUID>& missing,
                            const std::string& fonts, const std::optional<std::filesystem::path>& package,
                            const std::set<Lane>& soloed = {});

    /// All of one source as it was recorded, in its own size. Throws Problem where it can't be played; a
    /// source whose file is gone plays black.
    static PlayerItem footage(const Source& source);

    /// Whether two items show the same stretches of the same files, so that one can take the other's place
    /// without a break in the picture.
    bool hasPictureOf(const PlayerItem& other) const;
};

}
