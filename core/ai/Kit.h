#pragma once

#include <array>
#include <string_view>

namespace murbo {

/// One thing that AI can do for the owner: in the program, through an AI app, or both.
struct Kit {
    enum class ID {
        transcribe,
        describeClips,
        notesFromFrames,
        fixWords,
        ideas,
        cutToInstruction,
        reviseCuts,
        firstPass,
        look,
        sound,
        makePlaybook
    };
    enum class Scope { clips, stretch, project, video, library };

    ID id;
    std::string_view name;
    std::string_view does;
    Scope scope;
    bool inApp;
    bool overMCP;
    std::string_view place;   ///< where to find it in the program
    std::string_view done;    ///< the word for a finished run
    std::string_view request; ///< the text for an AI app, with "{picked}"; empty where it has none
};
constexpr auto rawTexts(Kit::ID) {
    return std::array<std::string_view, 11>{"transcribe", "describeClips", "notesFromFrames",
                                            "fixWords",   "ideas",         "cutToInstruction",
                                            "reviseCuts", "firstPass",     "look",
                                            "sound",      "makePlaybook"};
}
constexpr auto rawTexts(Kit::Scope) {
    return std::array<std::string_view, 5>{"clips", "stretch", "project", "video", "library"};
}

}
