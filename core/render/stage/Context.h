#pragma once

#include "core/render/plan/PlacedOverlay.h"
#include "core/render/plan/StageValue.h"
#include "core/render/stage/Scene.h"

#include <cmath>
#include <cstddef>
#include <optional>
#include <string>

namespace murbo::Stage {

/// Pixels of a layer's longer side above which it is left out: a hundred frames, of which nobody would see
/// more than a spot.
inline constexpr double largestSide = 100'000;

/// All that the drawing of one layer reads.
struct Context {
    const PlacedOverlay& placed;
    const Playbook::Layer& layer;
    std::size_t index; ///< of the layer in the playbook
    double held;       ///< seconds since it came on, in the playbook's own time
    double life;       ///< seconds that it stays on, in the playbook's own time
    const Scene& scene;

    double width() const { return scene.plan.frame.width; }
    double height() const { return scene.plan.frame.height; }
    Rect frame() const { return {0, 0, width(), height()}; }
    /// What is wanted of what the frame may still have, or all that is left.
    std::int64_t take(std::int64_t Budget::*what, std::int64_t wanted) const {
        return scene.budget ? scene.budget->take(what, wanted) : wanted;
    }
    /// Whether the frame may have all of them; they are taken, or else all that is left, so that nothing
    /// which comes later is drawn in their place.
    bool takeAll(std::int64_t Budget::*what, std::int64_t wanted) const {
        return take(what, wanted) == wanted;
    }
    /// The same for a picture that has `finer` pixels to the one, across and down.
    bool takePixels(const Image& image, double finer) const {
        const Rect extent = image.extent();
        const auto pixels = std::int64_t(std::min(extent.width * extent.height * finer * finer, 1e15));
        return takeAll(&Budget::pixels, std::max(pixels, Budget::fewestPixels));
    }
    bool has(std::int64_t Budget::*what, std::int64_t wanted) const {
        return !scene.budget || scene.budget->*what >= wanted;
    }
    /// The same for the part of the frame that a rectangle covers.
    bool takeArea(const Rect& covered, bool costly) const {
        const Rect seen = covered.intersection(frame());
        const double share = seen.empty() ? 0 : seen.width * seen.height / (width() * height());
        return takeAll(&Budget::area, std::int64_t(std::ceil(share * double(Budget::frame))) *
                                          (costly ? Budget::costlyArea : 1));
    }
    std::optional<std::string> text(const std::optional<std::string>& given) const {
        return value(given, *placed.values);
    }
    /// A number of the layer; nothing where it has none, or no finite one comes of it.
    std::optional<double> number(const std::optional<Playbook::Num>& given) const {
        const auto number = given ? given->value(*placed.values) : std::nullopt;
        return number && std::isfinite(*number) ? number : std::nullopt;
    }
    /// Pixels of a side that the layer gives as a share of a side of the frame: of its half where no number
    /// comes of what it says. Nothing where it says nothing.
    std::optional<double> pixels(const std::optional<Playbook::Num>& given, double side) const {
        constexpr double usual = 0.5;
        return given ? std::optional(number(given).value_or(usual) * side) : std::nullopt;
    }
};

}
