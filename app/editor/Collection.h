#pragma once

#include <array>
#include <string_view>

namespace murbo {

/// Which collection the browser shows: one of these, or a single source.
enum class Collection {
    videos,
    sources,
    clips,
    ideas,
    favourites,
    bookmarks,
    missing,
    layouts,
    generators,
    playbooks,
    sounds,
    music,
    toolkit
};
constexpr auto rawTexts(Collection) {
    return std::array<std::string_view, 13>{"videos",    "sources", "clips",   "ideas",      "favourites",
                                            "bookmarks", "missing", "layouts", "generators", "playbooks",
                                            "sounds",    "music",   "toolkit"};
}

}
