#include "core/render/VideoComposition.h"

#include "core/model/Project.h"
#include "core/render/plan/FrameTime.h"
#include "platform/base/Problem.h"
#include "platform/media/MediaFile.h"

#include <algorithm>
#include <cmath>

namespace murbo {
namespace {

constexpr double highestSourceRate = 60;
constexpr double rateWithoutFootage = 30;
constexpr double highestRate = 240;         // no screen shows more
constexpr double longestVideo = 100 * 3600; // seconds; far beyond what anybody watches

int wholeRate(double rate) {
    const double whole = std::round(rate);
    if (!(whole >= 1 && whole <= highestRate)) {
        throw Problem("The frame rate must lie between 1 and 240 frames a second.");
    }
    return static_cast<int>(whole);
}

using Pictures = std::map<UUID, MediaFacts::Picture>;

/// What the footage's pictures are like, by its source. An unreadable file has no say.
Pictures picturesOf(const Video& video, const Project& project, const std::set<UUID>& missing) {
    Pictures found;
    std::set<UUID> seen = missing;
    for (const auto& cut : video.cuts) {
        const auto* source = project.source(cut.source);
        if (!source || !seen.insert(source->id).second) continue;
        try {
            if (const auto picture = MediaFile::facts(source->path).picture) found[source->id] = *picture;
        } catch (const Problem&) {
        }
    }
    return found;
}

double rateOf(const Pictures& pictures) {
    double rate = 0;
    for (const auto& [source, picture] : pictures) rate = std::max(rate, picture.nominalRate);
    return rate > 0 ? std::clamp(std::round(rate), 1.0, highestSourceRate) : rateWithoutFootage;
}

std::vector<VideoComposition::Segment> laidOut(const Video& video, const Plan& plan, const Pictures& pictures,
                                               const std::set<UUID>& missing, int rate) {
    std::vector<VideoComposition::Segment> segments;
    double at = 0;
    for (std::size_t index = 0; index < video.cuts.size(); ++index) {
        const auto& cut = video.cuts[index];
        const auto* next = index + 1 < video.cuts.size() ? &video.cuts[index + 1] : nullptr;
        VideoComposition::Segment segment;
        segment.start = at;
        segment.length = cut.length();
        const auto picture = pictures.find(cut.source);
        segment.from =
            picture == pictures.end() ? cut.start : FrameTime::begin(cut.start, picture->second.grid);
        segment.lastMoment = FrameTime::lastMoment(cut, next);
        const auto file = plan.sources.find(cut.source);
        if (file != plan.sources.end() && !missing.contains(cut.source)) {
            segment.file = file->second;
            segment.source = cut.source;
        }
        at = segment.end();
        if (!(at <= longestVideo)) throw Problem("The video is too long to be made into a movie.");
        segment.firstFrame = FrameTime::first(segment.start, rate);
        segment.endFrame = FrameTime::first(at, rate);
        segments.push_back(std::move(segment));
    }
    return segments;
}

}

VideoComposition VideoComposition::make(const Video& video, const Project& project,
                                        const std::set<UUID>& missing, const std::string& fonts,
                                        const std::optional<std::filesystem::path>& package,
                                        std::optional<double> frameRate) {
    VideoComposition composition;
    const auto pictures = picturesOf(video, project, missing);
    composition.rate = wholeRate(frameRate ? *frameRate : rateOf(pictures));
    composition.box = std::make_shared<PlanBox>(Plan::video(video, project, fonts, package));
    composition.segments = laidOut(video, *composition.box->plan(), pictures, missing, composition.rate);
    return composition;
}

double VideoComposition::sourceRate(const Video& video, const Project& project,
                                    const std::set<UUID>& missing) {
    return rateOf(picturesOf(video, project, missing));
}

VideoComposition::Moment VideoComposition::moment(std::int64_t frame) const {
    const auto on = std::partition_point(segments.begin(), segments.end(), [frame](const Segment& segment) {
        return segment.endFrame <= frame;
    });
    const double time = std::max(static_cast<double>(frame) / rate, on->start);
    return {static_cast<std::size_t>(on - segments.begin()), time,
            FrameTime::asked(on->from, time - on->start, on->lastMoment)};
}

}
