#pragma once

#include "platform/base/UUID.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

namespace murbo {

/// A block that is picked on the timeline.
struct Pick {
    enum class Kind { cut, shot, overlay, sound, music, caption };

    Kind kind = Kind::cut;
    UUID id;                           ///< a caption's is its line's
    std::optional<std::int64_t> piece; ///< of a caption broken into pieces, from 0

    bool operator==(const Pick&) const = default;
};
constexpr auto rawTexts(Pick::Kind) {
    return std::array<std::string_view, 6>{"cut", "shot", "overlay", "sound", "music", "caption"};
}

}
