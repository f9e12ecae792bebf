#include "core/mcp/MCPTool.h"

#include "platform/base/RawText.h"

#include <algorithm>

#include <nlohmann/json.hpp>

namespace murbo {

namespace {

using ID = MCPTool::ToolID;
using Kind = MCPTool::Kind;
using Param = MCPTool::Param;
using Type = Param::Type;

constexpr Param readClipsParams[] = {
    {"clips", Type::array, "Clip tags, like C14", true, {}, true},
};

constexpr Param searchLinesParams[] = {
    {"query", Type::text, "The words to find", true, {}, true},
};

constexpr Param readVideoParams[] = {
    {"video", Type::text, "The video's tag, like V2", true, {}, false},
};

constexpr Param readLoudnessParams[] = {
    {"video", Type::text, "A video's tag, like V2", false, {}, false},
    {"clips", Type::array, "Clip tags, like C14, when no video is named", false, {}, true},
};

constexpr Param readPlaybookParams[] = {
    {"playbook", Type::text, "Its id, from list_playbooks", true, {}, false},
};

constexpr Param listSoundsParams[] = {
    {"search", Type::text, "Words to look for in folder and file names", false, {}, false},
};

constexpr Param describeClipsClipsParams[] = {
    {"clip", Type::text, "The clip's tag, like C14", true, {}, false},
    {"title", Type::text, "At most 8 words, English, the specific thing that happens", true, {}, false},
    {"summary", Type::text, "2 to 3 English sentences", true, {}, false},
    {"energy", Type::text, "calm, tense, panic or hype", false, {}, false},
    {"kind", Type::text, "fail, win, discovery, banter, rant, wholesome, story or scenery", false, {}, false},
    {"key_line", Type::text, "Tag of its most quotable line", false, {}, false},
    {"unsure", Type::text, "What could not be made out", false, {}, false},
};

constexpr Param describeClipsParams[] = {
    {"clips", Type::array, "One entry per clip", true, describeClipsClipsParams, true},
};

constexpr Param fixLinesLinesParams[] = {
    {"line", Type::text, "The line's tag, like C14.03", true, {}, false},
    {"text", Type::text, "Its words, corrected", true, {}, false},
};

constexpr Param fixLinesParams[] = {
    {"lines", Type::array, "The lines to correct", true, fixLinesLinesParams, true},
};

constexpr Param cutParams[] = {
    {"from", Type::text, "tag of the first line or note, like C06.02", true, {}, false},
    {"to", Type::text, "tag of the last one, in the same clip", true, {}, false},
    {"role", Type::text, "setup, build, payoff, reaction or button", false, {}, false},
};

constexpr Param proposeIdeasIdeasParams[] = {
    {"title", Type::text, "Working title, English", true, {}, false},
    {"hook", Type::text, "What the first 2 seconds show or say", true, {}, false},
    {"why", Type::text, "One sentence on why it would work", true, {}, false},
    {"format",
     Type::text,
     "single moment, montage, setup and payoff, running gag or story",
     false,
     {},
     false},
    {"cuts", Type::array, "The cuts in the order they play, each a run of lines inside one clip", true,
     cutParams, false},
};

constexpr Param proposeIdeasParams[] = {
    {"ideas", Type::array, "Up to three ideas", true, proposeIdeasIdeasParams, true},
};

constexpr Param makeVideoParams[] = {
    {"title", Type::text, "Its title", true, {}, true},
    {"aspect", Type::text, "9:16 (the default), 16:9, 1:1 or 4:5", false, {}, false},
    {"cuts", Type::array, "The cuts in the order they play, each a run of lines inside one clip", true,
     cutParams, true},
};

constexpr Param setCutsParams[] = {
    {"video", Type::text, "The video's tag, like V2", true, {}, false},
    {"cuts", Type::array, "The cuts in the order they play, each a run of lines inside one clip", true,
     cutParams, true},
};

constexpr Param renameVideoParams[] = {
    {"video", Type::text, "The video's tag, like V2", true, {}, false},
    {"title", Type::text, "Its new title", true, {}, true},
};

constexpr Param setShotsShotsParams[] = {
    {"at", Type::text, "Tag of the line the shot starts on; a line the video plays", true, {}, false},
    {"layout", Type::text, "split, content, face, or a layout playbook's id", true, {}, false},
    {"zoom", Type::number, "1 as framed, up to 2 to punch in; on face keep to 1.1 to 1.25", false, {}, false},
    {"move", Type::text, "push, pull, drift, pan-left, pan-right or shake", false, {}, false},
};

constexpr Param setShotsParams[] = {
    {"video", Type::text, "The video's tag, like V2", true, {}, false},
    {"shots", Type::array, "The shots in order; the first at the video's first line", true,
     setShotsShotsParams, false},
};

constexpr Param setCaptionsBreaksParams[] = {
    {"line", Type::text, "The line's tag", true, {}, false},
    {"pieces", Type::array, "Its words in pieces, in order, together the whole line", true, {}, false},
};

constexpr Param setCaptionsParams[] = {
    {"video", Type::text, "The video's tag, like V2", true, {}, false},
    {"big", Type::array, "Tags of one to three punchlines", false, {}, false},
    {"hidden", Type::array, "Tags of lines not to show", false, {}, false},
    {"breaks", Type::array, "Lines broken by hand", false, setCaptionsBreaksParams, false},
};

constexpr Param setSoundsSoundsParams[] = {
    {"file", Type::text, "A sound from list_sounds, or one the video has already", true, {}, false},
    {"at", Type::text, "Tag of the line it plays on; a line the video plays", true, {}, false},
    {"after", Type::number, "Seconds after that line starts; 0 when left out", false, {}, false},
    {"volume", Type::number, "0 to 1; 0.7 when left out", false, {}, false},
};

constexpr Param setSoundsParams[] = {
    {"video", Type::text, "The video's tag, like V2", true, {}, false},
    {"sounds", Type::array, "The sounds", true, setSoundsSoundsParams, false},
};

constexpr Param writePlaybookParams[] = {
    {"playbook", Type::text, "The playbook's JSON", true, {}, true},
};

constexpr MCPTool tools[] = {
    {ID::overview,
     "overview",
     "The project open in Murbo: its sources with the owner's notes, a line for every clip (its description, "
     "or how it starts), the videos and the ideas waiting. Start here.",
     Kind::read,
     {},
     "{}"},
    {ID::readClips, "read_clips",
     "The lines and notes of some clips, each with its tag (C14.03, C14.n1): what cuts are made from.",
     Kind::read, readClipsParams, "{\"clips\": [\"C14\"]}"},
    {ID::searchLines, "search_lines",
     "Where something was said: every line that holds the words, with its tag.", Kind::read,
     searchLinesParams, "{\"query\": \"no way\"}"},
    {ID::readVideo, "read_video",
     "Everything about a video in one answer: its cuts by tag with what is said, its shots, big and hidden "
     "captions and where lines break, its sounds. Read it before changing the video.",
     Kind::read, readVideoParams, "{\"video\": \"V2\"}"},
    {ID::readLoudness, "read_loudness",
     "Where a video, or some clips, are loud (shouts, laughs, crashes), their loudest moments, and where "
     "nobody speaks, each place named by the line it falls in. Places for a punch-in, a sound or a cut, "
     "found without pictures.",
     Kind::read, readLoudnessParams, "{\"video\": \"V2\"}"},
    {ID::listBookmarks,
     "list_bookmarks",
     "The owner's bookmarks (B1, B2…): where each is, the clip and line it falls in, and the owner's note. "
     "Where the owner wants you to look.",
     Kind::read,
     {},
     "{}"},
    {ID::whatChanged, "what_changed",
     "What the owner changed in a video since you last read or changed it: title, cuts, shots, captions, "
     "sounds. Ask before changing a video you read a while ago, and keep their work.",
     Kind::read, readVideoParams, "{\"video\": \"V2\"}"},
    {ID::listPlaybooks,
     "list_playbooks",
     "Every playbook in the owner's library and the app's own: layouts (for shots) and overlays, with what "
     "each is for and its parameters.",
     Kind::read,
     {},
     "{}"},
    {ID::readPlaybook, "read_playbook", "One playbook's JSON, to change it or make one like it.", Kind::read,
     readPlaybookParams, "{\"playbook\": \"stock.sticker\"}"},
    {ID::playbookGuide,
     "playbook_guide",
     "How playbooks are written: the format, its words, an example. Read it before writing one.",
     Kind::read,
     {},
     "{}"},
    {ID::listSounds, "list_sounds",
     "The owner's sound library: every sound file by folder, for set_sounds. With a search, only those whose "
     "folder or name holds it.",
     Kind::read, listSoundsParams, "{\"search\": \"boom\"}"},
    {ID::describeClips, "describe_clips",
     "Give clips their description: a title, a summary, energy, kind, the line that sums each up. The owner "
     "can undo it.",
     Kind::changeClips, describeClipsParams,
     "{\"clips\": [{\"clip\": \"C14\", \"title\": \"He walks into the wrong room\", \"summary\": \"He looks "
     "for the exit. The boss is there.\"}]}"},
    {ID::fixLines, "fix_lines",
     "Correct words the recognizer misheard (game terms, English or Japanese inside Thai), kept as spoken. "
     "One undo step.",
     Kind::changeClips, fixLinesParams,
     "{\"lines\": [{\"line\": \"C14.03\", \"text\": \"so this is the boss room\"}]}"},
    {ID::proposeIdeas, "propose_ideas",
     "Offer videos worth making, as ideas the owner sees in Murbo's Project ▸ Ideas and makes if they want. "
     "Nothing is made.",
     Kind::changeVideos, proposeIdeasParams,
     "{\"ideas\": [{\"title\": \"The wrong door\", \"hook\": \"He opens a door\", \"why\": \"The fall is "
     "sudden.\", \"cuts\": [{\"from\": \"C14.02\", \"to\": \"C14.05\"}]}]}"},
    {ID::makeVideo, "make_video", "Make a new video from cuts by tag. The owner can undo it.",
     Kind::changeVideos, makeVideoParams,
     "{\"title\": \"The wrong door\", \"cuts\": [{\"from\": \"C14.02\", \"to\": \"C14.05\"}]}"},
    {ID::setCuts, "set_cuts",
     "Replace a video's cuts. Read it first and send back every cut you keep; a cut covering the same lines "
     "keeps the owner's trims. The owner can undo it.",
     Kind::changeVideos, setCutsParams,
     "{\"video\": \"V2\", \"cuts\": [{\"from\": \"C14.02\", \"to\": \"C14.05\"}]}"},
    {ID::renameVideo, "rename_video", "Give a video a new title.", Kind::changeVideos, renameVideoParams,
     "{\"video\": \"V2\", \"title\": \"The wrong door\"}"},
    {ID::setShots, "set_shots",
     "Replace how a video is framed: shots, each starting where a line it plays starts and holding until the "
     "next. split for talking over the action, content for what happens on screen, face for reactions; or a "
     "layout playbook's id.",
     Kind::changeVideos, setShotsParams,
     "{\"video\": \"V2\", \"shots\": [{\"at\": \"C14.02\", \"layout\": \"split\"}]}"},
    {ID::setCaptions, "set_captions",
     "Choose a video's punchlines (shown big), captions hidden, and where long lines break into pieces shown "
     "one after another. Replaces what was chosen before; the words stay the transcript's.",
     Kind::changeVideos, setCaptionsParams, "{\"video\": \"V2\", \"big\": [\"C14.05\"]}"},
    {ID::setSounds, "set_sounds",
     "Replace a video's sound effects. Read the video first and send back every sound you keep. Sounds suit "
     "visual moments (a switch, a punch-in, a big caption, a loud moment), not every one.",
     Kind::changeVideos, setSoundsParams,
     "{\"video\": \"V2\", \"sounds\": [{\"file\": \"Hits/boom.wav\", \"at\": \"C14.05\"}]}"},
    {ID::undoMyLast,
     "undo_my_last",
     "Take back your own last change, when the owner has changed nothing since.",
     Kind::changeVideos,
     {},
     "{}"},
    {ID::writePlaybook, "write_playbook",
     "Save a playbook to the owner's library: a new one, or a new version of one (keep its id). The owner is "
     "asked first. Read playbook_guide before writing one.",
     Kind::library, writePlaybookParams,
     "{\"playbook\": \"{\\\"name\\\": \\\"Hello\\\", \\\"layers\\\": [{\\\"text\\\": \\\"Hello\\\"}]}\"}"},
};

char raised(char c) {
    return 'a' <= c && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

}

std::span<const MCPTool> MCPTool::all() {
    return tools;
}

const MCPTool* MCPTool::named(std::string_view name) {
    const auto found = std::ranges::find(tools, name, &MCPTool::name);
    return found == std::end(tools) ? nullptr : &*found;
}

nlohmann::json MCPTool::schema(std::span<const Param> params) {
    auto properties = nlohmann::json::object();
    auto required = nlohmann::json::array();
    for (const auto& param : params) {
        nlohmann::json property{{"type", rawText(param.type)}, {"description", param.about}};
        if (param.type == Type::array)
            property["items"] =
                param.items.empty() ? nlohmann::json{{"type", "string"}} : schema(param.items);
        properties[std::string(param.name)] = std::move(property);
        if (param.required) required.push_back(param.name);
    }
    return {{"type", "object"}, {"properties", std::move(properties)}, {"required", std::move(required)}};
}

nlohmann::json MCPTool::listed() const {
    return {{"name", name}, {"description", about}, {"inputSchema", schema(params)}};
}

std::string MCPTool::title() const {
    std::string title(name);
    bool atStart = true;
    for (char& c : title) {
        if (atStart) c = raised(c);
        atStart = c == '_';
        if (atStart) c = ' ';
    }
    return title;
}

}
