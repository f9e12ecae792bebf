#pragma once

namespace murbo {

/// How far a thing that moves is from rest, whether a caption or a layer.
struct Movement {
    double dx = 0; ///< pixels
    double dy = 0; ///< pixels, downward
    double scale = 1;
    double rotation = 0; ///< degrees clockwise
    double opacity = 1;
    double reveal = 1; ///< the share of its width that shows, from the left; captions always show whole

    /// Both at once.
    Movement with(const Movement& other) const;
    /// Whether it stands where it would without.
    bool rests() const;
    bool operator==(const Movement&) const = default;
};

}
