#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>

#include <nlohmann/json_fwd.hpp>

namespace murbo {

/// One thing that an AI app may do. The one table of them is what lists, schemas, checks of arguments,
/// permissions, the page of them and the calls themselves go by. Its texts are written for models, which get
/// no other manual.
struct MCPTool {
    enum class ToolID {
        overview,
        readClips,
        searchLines,
        readVideo,
        readLoudness,
        listBookmarks,
        whatChanged,
        listPlaybooks,
        readPlaybook,
        playbookGuide,
        listSounds,
        describeClips,
        fixLines,
        proposeIdeas,
        makeVideo,
        setCuts,
        renameVideo,
        setShots,
        setCaptions,
        setSounds,
        undoMyLast,
        writePlaybook
    };
    enum class Kind { read, changeClips, changeVideos, library };

    struct Param {
        enum class Type { text, number, array };

        std::string_view name;
        Type type;
        std::string_view about;
        bool required;
        std::span<const Param> items; ///< the shape of an array's objects; an array without is of texts
        bool hasOwnWords;             ///< the tool itself says what is wrong with it
    };

    ToolID id;
    std::string_view name;
    std::string_view about;
    Kind kind;
    std::span<const Param> params;
    std::string_view example; ///< the arguments of a right call

    /// All tools, in the order of their ids and of every list.
    static std::span<const MCPTool> all();

    /// The tool of that very name, or null.
    static const MCPTool* named(std::string_view name);

    /// Its entry in the list that apps get.
    nlohmann::json listed() const;

    /// JSON Schema of an object with these members.
    static nlohmann::json schema(std::span<const Param> params);

    /// Its name for the owner's eyes: "Read Clips".
    std::string title() const;
};
constexpr auto rawTexts(MCPTool::Kind) {
    return std::array<std::string_view, 4>{"read", "changeClips", "changeVideos", "library"};
}
constexpr auto rawTexts(MCPTool::Param::Type) {
    return std::array<std::string_view, 3>{"string", "number", "array"};
}

}
