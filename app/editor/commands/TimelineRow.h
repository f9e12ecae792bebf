#pragma once

#include <array>
#include <string_view>

namespace murbo {

/// A row of the timeline, in the order shown.
enum class TimelineRow { shots, layers, picture, captions, overlays, sounds, music };
constexpr auto rawTexts(TimelineRow) {
    return std::array<std::string_view, 7>{"shots",    "layers", "picture", "captions",
                                           "overlays", "sounds", "music"};
}

}
