#include "core/render/plan/Plan.h"

#include "core/model/CaptionPresets.h"
#include "core/render/plan/FrameTime.h"
#include "core/render/plan/PlanBooks.h"
#include "platform/base/Files.h"

#include <algorithm>

#include <fmt/format.h>

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

/// By the shots' name for them alone: the first shot whose playbook is found decides for all.
std::map<std::string, Shared<Book>> foundLayouts(const std::vector<PlacedShot>& shots, PlanBooks& books) {
    std::map<std::string, Shared<Book>> layouts;
    for (const auto& [start, end, shot, implicit] : shots) {
        if (!shot.playbook || layouts.contains(*shot.playbook)) continue;
        if (const auto* book = books.find(*shot.playbook, shot.version))
            layouts.emplace(*shot.playbook, *book);
    }
    return layouts;
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
    PlanBooks books(package);
    if (video.look) plan.overlays = PlacedOverlay::place(video.look->overlays, video.cuts, books);
    plan.layouts = foundLayouts(plan.shots, books);
    plan.generated = PlacedOverlay::generated(video.cuts, books);
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
        shots, [&](const PlacedShot& shot) { return FrameTime::reached(shot.start, time); });
    return after == shots.begin() ? &shots.front() : &*std::prev(after);
}

const CaptionCue* Plan::cue(double time) const {
    const auto found = std::ranges::find_if(
        cues, [&](const CaptionCue& cue) { return FrameTime::isOn(cue.start, cue.end, time); });
    return found == cues.end() ? nullptr : &*found;
}

const PlacedOverlay* Plan::generatedAt(double time) const {
    const auto found =
        std::ranges::find_if(generated, [&](const PlacedOverlay& each) { return each.isOn(time); });
    return found == generated.end() ? nullptr : &*found;
}

const Shared<Book>* Plan::layout(const Shot& shot) const {
    const auto found = shot.playbook ? layouts.find(*shot.playbook) : layouts.end();
    return found == layouts.end() ? nullptr : &found->second;
}

const Framing& Plan::framing(const std::optional<UUID>& source) const {
    static const Framing usual;
    const auto found = source ? framings.find(*source) : framings.end();
    return found == framings.end() ? usual : found->second;
}

std::optional<std::filesystem::path> Plan::file(const std::string& name, const Book* book) const {
    constexpr std::size_t longest = 4096; // bytes; no system opens more
    if (name.size() > longest || name.find('\0') != std::string::npos) return std::nullopt;
    if (name.starts_with('/')) return name;
    if (name.starts_with("media/") && project) return Files::inside(*project, name);
    return book ? book->file(name) : std::nullopt;
}

Values Plan::values(const Shot& shot, const Book& book, const Framing& framing) {
    Values values = book.values(std::nullopt);
    if (book.playbook.params && book.playbook.params->contains("split"))
        values["split"] = fmt::format("{}", shot.split.value_or(framing.split));
    if (shot.values)
        for (const auto& [name, value] : *shot.values) values[name] = value;
    return values;
}

}
