#pragma once

#include "platform/base/UUID.h"

#include <array>
#include <optional>
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

struct SidebarPick {
    Collection collection = Collection::sources;
    std::optional<UUID> source; ///< a single source; the collection is `sources` then
    bool operator==(const SidebarPick&) const = default;
};

/// Which side the inspector follows.
enum class Inspecting { browser, timeline };
constexpr auto rawTexts(Inspecting) {
    return std::array<std::string_view, 2>{"browser", "timeline"};
}

/// What a press on the timeline does.
enum class EditingTool { select, trim, blade, hand };
constexpr auto rawTexts(EditingTool) {
    return std::array<std::string_view, 4>{"select", "trim", "blade", "hand"};
}

/// Which player has the keys.
enum class Viewer { source, video };
constexpr auto rawTexts(Viewer) {
    return std::array<std::string_view, 2>{"source", "video"};
}

enum class InspectorTab { inspector, transcript, captions, ask, mcp };
constexpr auto rawTexts(InspectorTab) {
    return std::array<std::string_view, 5>{"inspector", "transcript", "captions", "ask", "mcp"};
}

/// The edge of a trim in progress, as the source player shows it.
struct TrimEdge {
    UUID source;
    double at = 0; ///< seconds on the source
    bool operator==(const TrimEdge&) const = default;
};

}
