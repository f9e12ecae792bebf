#include "core/render/stage/Slots.h"

#include "core/model/Project.h"
#include "core/render/footage/Footage.h"
#include "platform/base/Numbers.h"
#include "platform/base/Text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace murbo::Stage::Slots {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view under = "under";
constexpr std::string_view stretch = "rec:";
constexpr std::string_view emoji = "emoji:";
constexpr double emojiPoints = 200;

/// Each layer plays by a reader of its own.
std::string readerKey(const Context& context) {
    return context.placed.overlay.id.text() + "#" + std::to_string(context.index);
}

/// Anything but a regular file could keep its reader waiting.
bool canBeRead(const fs::path& path) {
    std::error_code error;
    return fs::is_regular_file(path, error);
}

bool isVideo(const fs::path& path) {
    static constexpr std::array<std::string_view, 4> extensions{".mp4", ".mov", ".m4v", ".webm"};
    const auto extension = Text::lowercased(path.extension().string());
    return std::find(extensions.begin(), extensions.end(), extension) != extensions.end();
}

/// A video for the layer to play. Nothing where the frame shows more than could all stay open.
std::shared_ptr<Footage> footageOf(const fs::path& path, const Context& context) {
    if (context.take(&Budget::videos, 1) == 0) return nullptr;
    const auto footage = context.scene.media.footage(path, readerKey(context));
    const std::int64_t more = footage ? (footage->area() - 1) / Budget::usualVideo : 0;
    return context.take(&Budget::videos, more) == more ? footage : nullptr;
}

std::optional<Image> videoPicture(const fs::path& path, const Context& context) {
    const auto footage = footageOf(path, context);
    if (!footage) return std::nullopt;
    const double start = context.layer.start.value_or(0);
    const double left = std::max(footage->length() - start, 0.0);
    return footage->frame(start + playhead(context.layer, context.held, left));
}

/// A picture file, where the frame may have its pixels; coarser where it may not have those of the largest.
std::optional<Image> filePicture(const fs::path& path, const Context& context) {
    if (!context.has(&Budget::pixels, Budget::fewestPixels)) return std::nullopt;
    const bool whole = context.has(&Budget::pixels, std::int64_t(PlaybookMedia::maxPixels));
    const auto image = context.scene.media.image(path, PlaybookMedia::maxPixels / (whole ? 1 : 4));
    const double readAnyway = 1.5; // reading it takes as long as for all of its pixels
    return image && context.takePixels(*image, whole ? 1 : readAnyway) ? image : std::nullopt;
}

std::optional<Image> emojiPicture(const std::string& text, const Context& context) {
    if (!context.has(&Budget::pixels, Budget::fewestPixels)) return std::nullopt;
    const auto image = context.scene.media.glyph(text, emojiPoints);
    return image && context.takePixels(*image, 1) ? image : std::nullopt;
}

std::vector<double> numbers(std::string_view text) {
    std::vector<double> result;
    while (!text.empty() && result.size() < 3) {
        const auto end = std::min(text.find('-'), text.size());
        if (const auto number = Numbers::parse(text.substr(0, end))) result.push_back(*number);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return result;
}

std::optional<Image> recorded(const fs::path& source, std::string_view text, const Context& context) {
    const auto ends = numbers(text);
    if (ends.size() != 2 || !(ends[0] < ends[1]) || !canBeRead(source)) return std::nullopt;
    const auto footage = footageOf(source, context);
    if (!footage) return std::nullopt;
    return footage->frame(ends[0] + playhead(context.layer, context.held, ends[1] - ends[0]));
}

}

bool readsBelow(const Context& context) {
    return context.layer.slot && context.text(context.layer.slot) == under;
}

std::optional<Image> picture(const std::string& text, const Context& context) {
    if (text == under) return context.scene.below.cropped(context.frame());
    if (text == "face" || text == "content") return std::nullopt; // panels, where there is footage
    const auto& sources = context.scene.plan.sources;
    const auto source = sources.find(context.placed.overlay.source);
    if (text.starts_with(stretch) && source != sources.end())
        return recorded(source->second, std::string_view(text).substr(stretch.size()), context);
    return file(text, context);
}

std::optional<Image> file(const std::string& text, const Context& context) {
    if (text.starts_with(emoji)) return emojiPicture(text.substr(emoji.size()), context);
    const auto path = context.scene.plan.file(text, &*context.placed.book);
    if (!path || !canBeRead(*path)) return std::nullopt;
    return isVideo(*path) ? videoPicture(*path, context) : filePicture(*path, context);
}

double playhead(const Playbook::Layer& layer, double held, double length) {
    constexpr double stillest = 0.05;
    constexpr double lastFrame = 0.04; // so that a frame is there
    const double played = held * layer.speed.value_or(1);
    if (!(length > stillest) || !std::isfinite(length) || !std::isfinite(played)) return 0;
    const auto within = [&](double span) { // backwards too
        const double rest = std::fmod(played, span);
        return rest < 0 ? rest + span : rest;
    };
    if (layer.bounce.value_or(false)) {
        const double there = within(2 * length);
        return there < length ? there : 2 * length - there;
    }
    if (layer.loop.value_or(false)) return within(length);
    return std::clamp(played, 0.0, length - lastFrame);
}

}
