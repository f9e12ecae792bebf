#include "core/render/plan/Plan.h"

#include "core/model/CaptionPresets.h"
#include "core/model/Times.h"

#include <algorithm>

namespace murbo {

namespace {

bool captionsAreOn(const Video& video) {
    return !video.look || video.look->captions.on;
}

std::vector<CaptionCue> visibleCues(const Video& video, const Project& project) {
    std::vector<CaptionCue> cues = CaptionCue::cues(video, project);
    std::erase_if(cues, [](const CaptionCue& cue) { return cue.hidden; });
    return cues;
}

std::map<std::string, CaptionStyle> resolvedPresets(const Project& project) {
    std::map<std::string, CaptionStyle> presets;
    for (const CaptionStyle& preset : CaptionPresets::of(project))
        if (preset.id) presets.try_emplace(*preset.id, CaptionPresets::resolved(project, preset.id));
    return presets;
}

}

Plan Plan::video(const Video& video, const Project& project, const std::string& fonts,
                 const std::optional<std::filesystem::path>& package) {
    Plan plan{.frame = frameSize(video.aspect),
              .shots = PlacedShot::place(video.look ? video.look->shots : List<Shot>(), video.cuts),
              .style = CaptionPresets::style(project, video),
              .fonts = fonts,
              .project = package,
              .presets = resolvedPresets(project)};
    if (captionsAreOn(video)) plan.cues = visibleCues(video, project);
    for (const Source& source : project.sources) {
        plan.framings.try_emplace(source.id, source.framing.value_or(Framing{}));
        plan.sources.try_emplace(source.id, source.path);
    }
    return plan;
}

Size Plan::frameSize(Video::Aspect aspect) {
    switch (aspect) {
        case Video::Aspect::vertical:
            return {1080, 1920};
        case Video::Aspect::horizontal:
            return {1920, 1080};
        case Video::Aspect::square:
            return {1080, 1080};
        case Video::Aspect::portrait:
            return {1080, 1350};
    }
    return {1080, 1920};
}

const PlacedShot* Plan::shot(double time) const {
    if (shots.empty()) return nullptr;
    const auto after = std::ranges::partition_point(
        shots, [&](const PlacedShot& shot) { return shot.start <= time + Times::noStretch; });
    return after == shots.begin() ? &shots.front() : &*std::prev(after);
}

const CaptionCue* Plan::cue(double time) const {
    const auto found = std::ranges::find_if(
        cues, [&](const CaptionCue& cue) { return cue.start <= time && time < cue.end; });
    return found == cues.end() ? nullptr : &*found;
}

const Framing& Plan::framing(const std::optional<UUID>& source) const {
    static const Framing usual;
    const auto found = source ? framings.find(*source) : framings.end();
    return found == framings.end() ? usual : found->second;
}

}
