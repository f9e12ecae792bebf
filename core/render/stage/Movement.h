#pragma once

#include "core/playbooks/Playbook.h"
#include "platform/image/Geometry.h"

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace murbo::Stage {

/// What moving adds to a layer at rest.
struct Movement {
    double dx = 0; ///< pixels, y downward
    double dy = 0;
    double scale = 1;
    double rotation = 0; ///< degrees clockwise
    double opacity = 1;
    double reveal = 1; ///< the share of its width that shows, from the left

    /// Both at once.
    Movement with(const Movement& other) const;
    /// Whether all stands where it would without.
    bool rests() const;
    bool operator==(const Movement&) const = default;
};

/// The entrance of that name at `progress` (clamped to 0…1) in a frame of that size; unknown names rest.
Movement enter(std::string_view name, double progress, Size frame);

/// The motion of that name that a layer keeps up while it is on, after `held` seconds. `seed` tells layers
/// apart that shake.
Movement hold(std::string_view name, double held, std::uint64_t seed);

/// Whether a layer with that hold is ever anywhere but at rest.
bool isMoving(std::string_view hold);

/// A number on its way through key frames.
struct Keyed {
    double value = 0;
    bool travels = false; ///< between two keys that differ
};

/// Where one field stands at a time. Nothing without a key for it.
std::optional<Keyed> interpolate(const std::vector<Playbook::Key>& keys,
                                 std::optional<double> Playbook::Key::*field, double time);

}
