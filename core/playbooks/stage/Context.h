#pragma once

#include "core/playbooks/stage/Stage.h"

#include <cstddef>

namespace murbo::Stage {

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
    std::optional<std::string> text(const std::optional<std::string>& given) const {
        return value(given, placed.values);
    }
    /// A number of the layer; nothing where it has none or none comes of it.
    std::optional<double> number(const std::optional<Playbook::Num>& given) const {
        return given ? given->value(placed.values) : std::nullopt;
    }
};

}
