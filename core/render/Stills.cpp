#include "core/render/Stills.h"

#include "core/model/Project.h"
#include "core/model/Times.h"
#include "core/model/VideoTime.h"
#include "core/render/Renderer.h"
#include "core/render/plan/FrameTime.h"
#include "platform/base/Problem.h"
#include "platform/image/Jpeg.h"
#include "platform/image/draw/Bands.h"
#include "platform/media/FrameReader.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace murbo::Stills {
namespace {

/// What the footage shows at a moment of a video, and whose it is.
struct ShownFootage {
    std::optional<Image> picture;
    std::optional<UUID> source;
};

/// A time just before a cut's start counts as at it, as it does for the frames of a movie.
double onCut(double at, const List<Cut>& cuts) {
    const auto starts = VideoTime::starts(cuts);
    const auto next = std::ranges::find_if(starts, [&](double start) { return start > at; });
    return next != starts.end() && FrameTime::reached(*next, at) ? *next : at;
}

/// The moment of its source that a cut shows at a place, as a movie's frame there does.
double momentOf(const VideoTime::Place& place, const List<Cut>& cuts, const PictureGrid& grid) {
    const auto* next = place.cut + 1 < cuts.size() ? &cuts[place.cut + 1] : nullptr;
    const auto& cut = cuts[place.cut];
    return FrameTime::asked(FrameTime::begin(cut.start, grid), place.at - cut.start,
                            FrameTime::lastMoment(cut, next));
}

ShownFootage footage(const Subject& of, double time) {
    const auto& cuts = of.video.cuts;
    const auto place = VideoTime::locate(time, cuts);
    if (!place) return {};
    const auto* source = of.project.source(cuts[place->cut].source);
    if (!source || of.missing.contains(source->id)) return {};
    try {
        auto reader = FrameReader::open(source->path, FrameReader::Purpose::stills);
        const auto shown = reader.at(momentOf(*place, cuts, reader.facts().picture->grid));
        if (!shown) return {{}, source->id};
        return {Image::frame(shown->frame), source->id};
    } catch (const Problem&) {
        return {};
    }
}

}

Image frame(const Subject& of, double at, PlanBox& box) {
    const double time = onCut(at, of.video.cuts);
    const auto [picture, source] = footage(of, time);
    return Renderer::render(picture, source, *box.plan(), time, box.captions(), box.media());
}

std::vector<Image> styled(const Subject& of, double at, const Plan& plan,
                          const std::vector<CaptionStyle>& styles) {
    std::vector<Plan> plans(styles.size(), plan);
    for (std::size_t one = 0; one < styles.size(); ++one) plans[one].style = styles[one];
    return planned(of, at, plans);
}

std::vector<Image> planned(const Subject& of, double at, const std::vector<Plan>& plans) {
    if (plans.empty()) return {};
    const double time = onCut(at, of.video.cuts);
    const auto [picture, source] = footage(of, time);
    PlanBox box(plans.front());
    std::vector<Image> images;
    for (const auto& plan : plans)
        images.push_back(Renderer::render(picture, source, plan, time, box.captions(), box.media()));
    return images;
}

std::optional<Image> caption(const std::string& text, const CaptionStyle& style, const std::string& fonts) {
    return CaptionPicture::draw({.text = text, .style = style, .fonts = fonts, .scale = 1});
}

std::optional<std::string> jpeg(const Image& image, double quality) {
    const auto extent = image.extent();
    if (extent.empty() || extent.isEverything()) return std::nullopt;
    Bitmap target(static_cast<int>(std::ceil(extent.width)), static_cast<int>(std::ceil(extent.height)));
    Bands::draw(image.transformed(Transform().translated(-extent.x, -extent.y)), target);
    return Jpeg::encode(target, quality);
}

}
