#pragma once

#include "app/desktop/timeline/TimelineLayout.h"

#include <array>
#include <optional>
#include <string_view>

namespace murbo {

/// Going from block to block on a timeline, as arrow keys do.
namespace BlockWalk {

enum class Way { previous, next, first, last, above, below };
constexpr auto rawTexts(Way) {
    return std::array<std::string_view, 6>{"previous", "next", "first", "last", "above", "below"};
}

/// The block that comes that way from the one that is picked. Without one it begins with the picture row's at
/// `time` of the video. Null where there is none to go to.
const TimelineBlock* from(const TimelineLayout& layout, const std::optional<Pick>& picked, double time,
                          Way way);

}

}
