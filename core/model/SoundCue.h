#pragma once

#include "platform/base/Field.h"
#include "platform/base/UUID.h"

#include <optional>
#include <string>

namespace murbo {

/// One sound effect or piece of music.
struct SoundCue {
    UUID id = UUID::make();
    std::string file; ///< absolute, or "media/…" in the package
    UUID source;
    double at = 0;                   ///< seconds on the source
    std::optional<double> volume;    ///< 0 to 1
    std::optional<std::string> from; ///< which library the file is from
    std::optional<double> length;    ///< seconds; plays only this long
    std::optional<double> skip;      ///< seconds cut off the file's start
    std::optional<bool> muted;

    bool operator==(const SoundCue&) const = default;
    static constexpr auto fields(auto visit) {
        return visit(field("id", &SoundCue::id), field("file", &SoundCue::file),
                     field("source", &SoundCue::source), field("at", &SoundCue::at),
                     field("volume", &SoundCue::volume), field("from", &SoundCue::from),
                     field("length", &SoundCue::length), field("skip", &SoundCue::skip),
                     field("muted", &SoundCue::muted));
    }
};

}
