#include "core/model/edits/ProjectOperations.h"

#include "platform/base/Problem.h"

#include <algorithm>
#include <limits>
#include <string_view>

namespace murbo::ProjectOperations {
namespace {

constexpr std::string_view letters = "abcdefghijklmnopqrstuvwxyz";

/// The first letter that no video of that number has; the last one where all are taken.
std::string freePart(const Project& project, std::int64_t number) {
    std::set<std::string> taken;
    for (const auto& video : project.videos)
        if (video.number == number && video.part) taken.insert(*video.part);
    for (const char letter : letters)
        if (!taken.contains(std::string(1, letter))) return std::string(1, letter);
    return std::string(1, letters.back());
}

/// The lines that count as said and overlap the range, by their start.
std::vector<const Line*> spoken(const Project& project, const UUID& source, Stretch range) {
    std::vector<const Line*> lines;
    for (const auto& line : project.transcript(source).lines)
        if (!line.isGone() && range.from < line.end && line.start < range.to) lines.push_back(&line);
    std::stable_sort(lines.begin(), lines.end(), [](auto* a, auto* b) { return a->start < b->start; });
    return lines;
}

std::optional<std::vector<Lane>> mutedLanes(const Video& video) {
    return video.look && video.look->mix ? video.look->mix->muted : std::nullopt;
}

void setMutedLanes(Video& video, const std::optional<std::vector<Lane>>& lanes) {
    if (!video.look) video.look.emplace();
    if (!video.look->mix) video.look->mix.emplace();
    video.look->mix->muted = lanes;
}

std::optional<std::vector<Lane>> kept(const Mutes& mutes, const UUID& video) {
    const auto found = mutes.rows.find(video);
    return found == mutes.rows.end() ? std::nullopt : std::optional(found->second);
}

}

std::int64_t nextNumber(std::int64_t& counter) {
    if (counter == std::numeric_limits<std::int64_t>::max())
        throw Problem("This project has no numbers left.");
    return ++counter;
}

Video newVideo(Project& project, std::string title, Video::Aspect aspect) {
    Video video;
    video.number = nextNumber(project.lastVideo);
    video.title = std::move(title);
    video.aspect = aspect;
    project.videos.edit().push_back(video);
    return video;
}

std::optional<Video> duplicate(Project& project, const UUID& id) {
    const auto found = std::find_if(project.videos.begin(), project.videos.end(),
                                    [&](const Video& video) { return video.id == id; });
    if (found == project.videos.end()) return std::nullopt;
    const auto at = found - project.videos.begin();
    Video copy = *found;
    copy.id = UUID::make();
    copy.part = freePart(project, copy.number);
    copy.title += " copy";
    for (auto& cut : copy.cuts.edit()) cut.id = UUID::make();
    auto& videos = project.videos.edit();
    videos.insert(videos.begin() + at + 1, copy);
    return copy;
}

std::vector<Stretch> quiet(const Project& project, const UUID& source, Stretch range, double least) {
    std::vector<Stretch> stretches;
    double from = range.from;
    for (const auto* line : spoken(project, source, range)) {
        if (line->start - from >= least) stretches.push_back({from, line->start});
        from = std::max(from, line->end);
    }
    if (range.to - from >= least) stretches.push_back({from, range.to});
    return stretches;
}

Mutes mutes(const Project& project) {
    Mutes mutes;
    for (const auto& video : project.videos) {
        mutes.seen.insert(video.id);
        if (const auto lanes = mutedLanes(video)) mutes.rows[video.id] = *lanes;
    }
    return mutes;
}

void keep(Project& project, const Mutes& mutes) {
    for (std::size_t at = 0; at < project.videos.size(); ++at) {
        const auto& video = project.videos[at];
        if (!mutes.seen.contains(video.id)) continue;
        const auto lanes = kept(mutes, video.id);
        if (mutedLanes(video) != lanes) setMutedLanes(project.videos.edit()[at], lanes);
    }
}

}
