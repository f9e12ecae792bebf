#include "core/render/stage/Cutout.h"

#include "platform/image/draw/Canvas.h"
#include "platform/vision/SubjectMask.h"

#include <cmath>
#include <cstring>

#include <fmt/format.h>

namespace murbo::Cutout {

namespace {

constexpr std::size_t maxMasks = 900;
constexpr std::size_t maxBytes = std::size_t{128} << 20;

std::size_t bytesOf(const std::optional<Bitmap>& mask) {
    return mask ? std::size_t(mask->stride()) * std::size_t(mask->height()) : 0;
}

/// The picture as small as a subject is looked for in, its top left at the origin.
Bitmap small(const Image& picture) {
    const Rect extent = picture.extent();
    const double scale = std::min(SubjectMask::side / std::max(extent.width, extent.height), 1.0);
    const double width = std::max(1.0, std::round(extent.width * scale));
    const double height = std::max(1.0, std::round(extent.height * scale));
    const auto fitted =
        Transform().translated(-extent.x, -extent.y).scaled(width / extent.width, height / extent.height);
    return Canvas::bitmap(picture.transformed(fitted), {0, 0, width, height});
}

std::uint64_t mixed(std::uint64_t state, std::uint64_t word) {
    state = (state ^ word) * 0x9E3779B97F4A7C15u;
    return state ^ (state >> 29);
}

/// Pictures with one name have, as good as surely, the same pixels.
std::string nameOf(const Bitmap& picture) {
    std::uint64_t one = 1;
    std::uint64_t other = 2;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); x += 2) {
            std::uint64_t word = 0;
            std::memcpy(&word, picture.row(y) + x * 4, x + 1 < picture.width() ? 8 : 4);
            one = mixed(one, word);
            other = mixed(other + word, one);
        }
    return fmt::format("{}x{}:{:x}{:016x}", picture.width(), picture.height(), one, other);
}

/// A mask brought to a picture's place and size.
Image laidOver(const Bitmap& mask, const Rect& extent) {
    const auto placed = Transform()
                            .scaled(extent.width / mask.width(), extent.height / mask.height())
                            .translated(extent.x, extent.y);
    return Image::bitmap(mask).clamped().transformed(placed).cropped(extent);
}

Image made(const Image& picture, Masks& masks) {
    const Bitmap looked = small(picture);
    const auto mask = masks.get(nameOf(looked), [&]() -> Masks::Weighed {
        auto found = SubjectMask::of(looked);
        const std::size_t bytes = bytesOf(found);
        return {std::move(found), bytes};
    });
    return mask ? picture.masked(laidOver(*mask, picture.extent())) : picture;
}

bool hasBounds(const Rect& rect) {
    return !rect.empty() && !rect.isEverything() && std::isfinite(rect.width) && std::isfinite(rect.height);
}

}

std::shared_ptr<Masks> makeMasks() {
    return std::make_shared<Masks>(Masks::Bounds{maxMasks, maxBytes});
}

Image of(const Image& picture, const std::shared_ptr<Masks>& masks) {
    if (!hasBounds(picture.extent()) || !SubjectMask::available()) return picture;
    // Images live on by themselves, so each holds on to the masks.
    return Image::later(picture.extent(), [picture, masks] {
        try {
            return made(picture, *masks);
        } catch (const std::exception&) { // no memory for it
            return picture;
        }
    });
}

}
