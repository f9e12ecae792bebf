#include "core/mcp/LoudPlaces.h"

#include "core/ai/Reply.h"
#include "core/intake/samples/Heard.h"
#include "core/intake/samples/LevelRange.h"
#include "core/mcp/MCPTags.h"
#include "core/model/ProjectSummary.h"
#include "core/model/VideoTime.h"
#include "core/model/edits/ProjectOperations.h"
#include "platform/base/Problem.h"

#include <set>

#include <fmt/format.h>
#include <nlohmann/json.hpp>

namespace murbo::LoudPlaces {

namespace {

constexpr double minQuiet = 2;     // seconds
constexpr double betweenPeaks = 2; // seconds
constexpr std::size_t maxPeaks = 8;
constexpr std::size_t maxPlaces = 40;

struct LoudMoment {
    double at = 0;     ///< on the clock that is shown
    double second = 0; ///< on the source
    std::uint8_t level = 0;
    UUID source;
};

class Places {
public:
    void add(std::string place) {
        if (++count <= maxPlaces) text += (text.empty() ? "" : "; ") + place;
    }
    std::string whole() const {
        if (count == 0) return "none";
        return count <= maxPlaces ? text : text + fmt::format("; and {} more", count - maxPlaces);
    }

private:
    std::string text;
    std::size_t count = 0;
};

std::string place(const Stretch& stretch, const HeardStretch& heard, const Said& said) {
    const auto shift = heard.at - heard.on.from;
    auto text = fmt::format("{} to {}", ProjectSummary::clock(stretch.from + shift),
                            ProjectSummary::clock(stretch.to + shift));
    if (const auto line = MCPTags::line(stretch.from, heard.source, said)) text += ", " + *line;
    return text;
}

/// The loudest moments of all stretches, so far apart that each is one of its own.
std::vector<LoudMoment> loudest(std::vector<LoudMoment> all) {
    std::ranges::stable_sort(all, std::ranges::greater(), &LoudMoment::level);
    std::vector<LoudMoment> chosen;
    for (const auto& peak : all) {
        if (chosen.size() == maxPeaks) break;
        const bool isNear = std::ranges::any_of(chosen, [&](const LoudMoment& other) {
            return other.source == peak.source && std::abs(other.at - peak.at) < betweenPeaks;
        });
        if (!isNear && peak.level > 0) chosen.push_back(peak);
    }
    std::ranges::sort(chosen, {}, &LoudMoment::at);
    return chosen;
}

/// Enough peaks of one stretch to choose from: of each second its loudest.
void addPeaks(const Heard& sound, const HeardStretch& heard, std::vector<LoudMoment>& peaks) {
    const auto range = LevelRange::of(heard.on, sound.rate, sound.levels.size());
    const auto rate = static_cast<std::size_t>(sound.rate);
    for (auto from = range.from; from < range.to; from += rate) {
        const auto first = sound.levels.begin() + static_cast<std::ptrdiff_t>(from);
        const auto last = sound.levels.begin() + static_cast<std::ptrdiff_t>(std::min(from + rate, range.to));
        const auto top = std::max_element(first, last);
        const auto second =
            std::max(static_cast<double>(top - sound.levels.begin()) / sound.rate, heard.on.from);
        peaks.push_back({heard.at + second - heard.on.from, second, *top, heard.source});
    }
}

std::string told(const std::vector<LoudMoment>& peaks, const Said& said) {
    Places places;
    for (const auto& peak : peaks) {
        const auto line = MCPTags::line(peak.second, peak.source, said);
        places.add(ProjectSummary::clock(peak.at) + (line ? ", " + *line : ""));
    }
    return places.whole();
}

}

Stretches stretches(const nlohmann::json& arguments, const Project& project) {
    Stretches found;
    if (const auto& tag = Reply::member(arguments, "video"); !tag.is_null()) {
        const auto& video = MCPTags::video(tag, project);
        const auto starts = VideoTime::starts(video.cuts);
        found.onVideo = true;
        for (std::size_t at = 0; at < starts.size(); ++at)
            if (const auto& cut = video.cuts[at]; !cut.generator && project.source(cut.source))
                found.all.push_back({cut.source, {cut.start, cut.end}, starts[at]});
        return found;
    }
    for (const auto* clip : MCPTags::clips(Reply::member(arguments, "clips"), project))
        if (project.source(clip->source))
            found.all.push_back({clip->source, {clip->start, clip->end}, clip->start});
    return found;
}

std::string text(const Stretches& stretches, const Project& project, const Said& said,
                 const std::map<UUID, std::vector<std::uint8_t>>& loudness) {
    std::map<UUID, std::pair<Heard, int>> sounds; // with their usual level
    for (const auto& heard : stretches.all) {
        if (sounds.contains(heard.source)) continue;
        const auto levels = loudness.find(heard.source);
        if (levels == loudness.end())
            throw Problem("Murbo is still measuring how loud the footage is. Ask again in a minute.");
        Heard sound{.levels = levels->second};
        const auto usual = sound.usual();
        sounds.emplace(heard.source, std::pair{std::move(sound), usual});
    }
    Places loud;
    Places quiet;
    std::vector<LoudMoment> peaks;
    for (const auto& heard : stretches.all) {
        const auto& [sound, usual] = sounds.at(heard.source);
        for (const auto& one : sound.loudStretches(heard.on, usual)) loud.add(place(one, heard, said));
        for (const auto& one : ProjectOperations::quiet(project, heard.source, heard.on, minQuiet))
            quiet.add(place(one, heard, said));
        addPeaks(sound, heard, peaks);
    }
    return fmt::format(
        "{}; each place names the line it falls in.\n\n"
        "Loud (well above the usual level): {}\n\n"
        "The loudest moments, at least 2 s apart, where a punch-in or a sound fits: {}\n\n"
        "Nobody speaks for 2 s or more: {}",
        stretches.onVideo ? "Times are on the video" : "Times are on each clip's source", loud.whole(),
        told(loudest(std::move(peaks)), said), quiet.whole());
}

std::vector<UUID> sources(const nlohmann::json& arguments, const Project& project) {
    std::set<UUID> found;
    for (const auto& heard : stretches(arguments, project).all) found.insert(heard.source);
    return {found.begin(), found.end()};
}

}
