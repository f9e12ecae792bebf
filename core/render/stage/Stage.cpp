#include "core/render/stage/Stage.h"

#include "core/render/stage/Elements.h"
#include "core/render/stage/Slots.h"
#include "core/render/stage/StagedLayer.h"

#include <algorithm>
#include <exception>
#include <vector>

namespace murbo::Stage {
namespace {

/// Where more of a playbook's layers are on at a moment, only the undermost are drawn.
constexpr std::size_t maxLayers = 500;

/// The layers that are on, undermost first.
std::vector<Context> layersOn(const PlacedOverlay& placed, const PlaybookClock& clock, double elapsed,
                              const Scene& scene) {
    std::vector<Context> result;
    const auto& layers = placed.book->playbook.layers;
    for (std::size_t i = 0; i < layers.size() && result.size() < maxLayers; ++i) {
        const auto span = clock.span(layers[i]);
        if (layers[i].sound || !span.holds(elapsed)) continue;
        const double held = (elapsed - span.on) / clock.factor();
        const double life = (span.off - span.on) / clock.factor();
        result.push_back({placed, layers[i], i, held, life, scene});
    }
    return result;
}

/// The layer at its place; nothing where it can't be drawn, for whatever cause.
StagedLayer staged(const Context& context, const PlaybookClock& clock, double elapsed) {
    try {
        const auto picture = Elements::picture(context);
        return picture ? StagedLayer::place(*picture, context, clock, elapsed) : StagedLayer{};
    } catch (const std::exception&) {
        return {};
    }
}

/// Layers over a canvas.
struct Composite {
    Image image;
    bool showsCanvas = true;
    int readings = 0; ///< how many layers that still show look at what lies below

    void add(const StagedLayer& layer, bool reads) {
        if (layer.image.empty()) return;
        if (layer.hides) {
            showsCanvas = false;
            readings = 0;
        }
        if (reads) ++readings;
        image = layer.hides ? layer.image : layer.image.over(image, layer.blend);
    }
};

Composite composite(const PlacedOverlay& placed, double time, const Scene& scene, const Image& canvas) {
    const PlaybookClock clock(placed);
    const double elapsed = time - placed.start;
    Composite result{canvas};
    for (const auto& context : layersOn(placed, clock, elapsed, scene)) {
        if (context.take(&Budget::layers, 1) == 0) break;
        const auto layer = staged(context, clock, elapsed);
        if (!context.takeArea(layer.image.extent(), layer.costly)) break;
        result.add(layer, Slots::readsBelow(context));
    }
    result.image = result.image.cropped({0, 0, scene.plan.frame.width, scene.plan.frame.height});
    return result;
}

}

/// A picture that is shown twice is drawn twice, and one under n overlays that each show it twice 2ⁿ times:
/// where it is needed more than once it is drawn once and kept. Needed once it goes directly into its layer,
/// which then samples the footage itself.
Image draw(const PlacedOverlay& placed, double time, const Scene& given, const Image& canvas) {
    Scene scene = given;
    Budget own;
    if (!scene.budget) scene.budget = &own;
    const Budget before = *scene.budget;
    const auto direct = composite(placed, time, scene, canvas);
    const bool same = canvas.isSameAs(scene.below);
    const int needed = direct.readings + (same && direct.showsCanvas ? 1 : 0);
    if (direct.readings == 0 || needed < 2) return direct.image;
    *scene.budget = before;
    scene.below = scene.below.drawnOnce();
    return composite(placed, time, scene, same ? scene.below : canvas).image;
}

bool showsBelow(const PlacedOverlay& placed, double time, const Scene& scene) {
    const auto layers = layersOn(placed, PlaybookClock(placed), time - placed.start, scene);
    return std::any_of(layers.begin(), layers.end(), Slots::readsBelow);
}

}
