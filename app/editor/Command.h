#pragma once

#include <array>
#include <string_view>

namespace murbo {

/// The editing commands that a key can give.
enum class Command {
    play,
    backward,
    stop,
    forward,
    markStart,
    markEnd,
    markClip,
    addToEnd,
    insert,
    select,
    trim,
    blade,
    hand,
    skimming,
    snapping,
    remove,
    favourite,
    clearRating,
    cutSplit,
    cutContent,
    cutFace,
    punch,
    clipMark,
    bookmark
};
constexpr auto rawTexts(Command) {
    return std::array<std::string_view, 24>{"play",    "backward",  "stop",        "forward",  "markStart",
                                            "markEnd", "markClip",  "addToEnd",    "insert",   "select",
                                            "trim",    "blade",     "hand",        "skimming", "snapping",
                                            "remove",  "favourite", "clearRating", "cutSplit", "cutContent",
                                            "cutFace", "punch",     "clipMark",    "bookmark"};
}

}
