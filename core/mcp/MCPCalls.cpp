#include "core/mcp/MCPCalls.h"

#include "core/ai/Brief.h"
#include "core/ai/VideoChange.h"
#include "core/mcp/ChangeTools.h"
#include "core/mcp/MCPArguments.h"
#include "core/mcp/ReadTools.h"
#include "platform/base/Problem.h"
#include "platform/base/Text.h"

#include <unordered_map>

#include <fmt/format.h>
#include <nlohmann/json.hpp>

namespace murbo::MCPCalls {

namespace {

using ID = MCPTool::ID;

constexpr const char* nameClips = "Name the clips by tag, like C14.";
constexpr std::size_t mostTags = 60; ///< named in one sentence

Result run(ID tool, const nlohmann::json& arguments, Project& project, const Context& context,
           const Said& said) {
    switch (tool) {
        case ID::overview:
            return ReadTools::overview(project, said);
        case ID::readClips:
            return ReadTools::readClips(arguments, project, said);
        case ID::searchLines:
            return ReadTools::searchLines(arguments, project, said);
        case ID::readVideo:
            return ReadTools::readVideo(arguments, project, said);
        case ID::readLoudness:
            return ReadTools::readLoudness(arguments, project, said, context);
        case ID::listBookmarks:
            return ReadTools::listBookmarks(project, said);
        case ID::whatChanged:
            return ReadTools::whatChanged(arguments, project, said, context);
        case ID::describeClips:
            return ChangeTools::describeClips(arguments, project, said);
        case ID::fixLines:
            return ChangeTools::fixLines(arguments, project, said);
        case ID::proposeIdeas:
            return ChangeTools::proposeIdeas(arguments, project, said);
        case ID::makeVideo:
            return ChangeTools::makeVideo(arguments, project, said);
        case ID::setCuts:
            return ChangeTools::setCuts(arguments, project, said);
        case ID::renameVideo:
            return ChangeTools::renameVideo(arguments, project);
        case ID::setShots:
            return ChangeTools::setShots(arguments, project, said, context);
        case ID::setCaptions:
            return ChangeTools::setCaptions(arguments, project, said);
        case ID::setSounds:
            return ChangeTools::setSounds(arguments, project, said, context);
        case ID::listPlaybooks:
        case ID::readPlaybook:
        case ID::playbookGuide:
        case ID::listSounds:
        case ID::undoMyLast:
        case ID::writePlaybook:
            break;
    }
    throw Problem(unknown(MCPTool::all()[static_cast<std::size_t>(tool)].name));
}

std::string tags(const List<Video>& videos) {
    std::string text;
    std::size_t count = 0;
    for (const auto& video : videos) {
        if (++count > mostTags) return text + fmt::format(" and {} more", videos.size() - mostTags);
        text += (text.empty() ? "" : ", ") + video.tag();
    }
    return text;
}

}

Result call(std::string_view name, const nlohmann::json& arguments, Project& project,
            const Context& context) {
    const auto* tool = MCPTool::named(name);
    if (!tool) throw Problem(unknown(name));
    MCPArguments::check(*tool, arguments);
    const auto said = context.said ? context.said : std::make_shared<const Said>(project);
    auto changed = project; // a copy that costs little: a change is taken over whole or not at all
    auto result = run(tool->id, arguments, changed, context, *said);
    project = std::move(changed);
    return result;
}

bool isInApp(ID tool) {
    switch (tool) {
        case ID::listPlaybooks:
        case ID::readPlaybook:
        case ID::playbookGuide:
        case ID::listSounds:
        case ID::undoMyLast:
        case ID::writePlaybook:
            return true;
        default:
            return false;
    }
}

const Video& video(const nlohmann::json& tag, const Project& project) {
    const auto wanted = tag.is_string() ? Text::trimmed(tag.get<std::string>()) : "";
    for (const auto& video : project.videos)
        if (Text::sameIgnoringCase(video.tag(), wanted)) return video;
    const auto given = VideoChange::given(tag);
    if (project.videos.empty())
        throw Problem(
            fmt::format("There is no video {}. There are no videos yet; make_video makes one.", given));
    throw Problem(fmt::format("There is no video {}. The videos are {}.", given, tags(project.videos)));
}

std::vector<const Clip*> clips(const nlohmann::json& wanted, const Project& project) {
    if (!wanted.is_array() || wanted.empty()) throw Problem(nameClips);
    std::unordered_map<std::string, const Clip*> byTag;
    for (const auto& clip : project.clips) byTag.emplace(Text::lowercased(clip.tag()), &clip);
    std::vector<const Clip*> found;
    for (const auto& tag : wanted) {
        if (!tag.is_string()) throw Problem(nameClips);
        const auto clip = byTag.find(Text::lowercased(Text::trimmed(tag.get_ref<const std::string&>())));
        if (clip == byTag.end())
            throw Problem(fmt::format("There is no clip {}. overview lists them.", VideoChange::given(tag)));
        // A clip that is named twice is read once.
        if (std::ranges::find(found, clip->second) == found.end()) found.push_back(clip->second);
    }
    return found;
}

std::optional<std::string> line(double second, const UUID& source, const Said& said) {
    constexpr double within = 0.01; // seconds
    const auto [piece, distance] = said.nearest(second, source);
    if (!piece) return std::nullopt;
    if (distance <= within) return piece->tag;
    return fmt::format("{} {} {:.1f} s", piece->tag, second < piece->start ? '-' : '+', distance);
}

std::string unknown(std::string_view name) {
    return fmt::format("Murbo has no tool called {}.", VideoChange::given(nlohmann::json(name)));
}

}
