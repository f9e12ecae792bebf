#include "core/mcp/MCPTags.h"

#include "core/ai/VideoChange.h"
#include "platform/base/Problem.h"
#include "platform/base/Text.h"

#include <algorithm>
#include <unordered_map>

#include <fmt/format.h>
#include <nlohmann/json.hpp>

namespace murbo::MCPTags {

namespace {

constexpr const char* nameClips = "Name the clips by tag, like C14.";
constexpr std::size_t maxTags = 60; ///< named in one sentence

std::string tags(const List<Video>& videos) {
    std::string text;
    std::size_t count = 0;
    for (const auto& video : videos) {
        if (++count > maxTags) return text + fmt::format(" and {} more", videos.size() - maxTags);
        text += (text.empty() ? "" : ", ") + video.tag();
    }
    return text;
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

}
