#pragma once

#include <array>
#include <string_view>

namespace murbo {

/// The lanes of a video's sound, in the order shown.
enum class Lane { video, overlays, sounds, music };
inline constexpr std::array<Lane, 4> allLanes{Lane::video, Lane::overlays, Lane::sounds, Lane::music};
constexpr auto rawTexts(Lane) {
    return std::array<std::string_view, 4>{"video", "overlays", "sounds", "music"};
}

}
