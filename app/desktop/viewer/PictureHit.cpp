#include "app/desktop/viewer/PictureHit.h"

#include "app/desktop/viewer/PickedPlace.h"
#include "core/render/OverlayStack.h"

#include <vector>

namespace murbo::PictureHit {
namespace {

/// What is on at a time, topmost first.
std::vector<Pick> shownAt(const Plan& plan, double time) {
    const auto stack = OverlayStack::at(time, plan);
    std::vector<Pick> shown;
    const auto add = [&shown](const OverlayStack::Overlays& overlays) {
        for (auto one = overlays.rbegin(); one != overlays.rend(); ++one)
            shown.push_back({Pick::Kind::overlay, (*one)->overlay.id, {}});
    };
    add(stack.aboveCaptions);
    if (const auto* cue = plan.cue(time)) shown.push_back({Pick::Kind::caption, cue->line, cue->piece});
    add(stack.belowCaptions);
    return shown;
}

}

std::optional<Pick> topmost(const HitOrder& order, PlaybookMedia& media) {
    for (const auto& pick : shownAt(order.plan, order.time))
        if (PickedPlace::shows({order.plan, pick, order.time}, order.at, media)) return pick;
    return {};
}

}
