#pragma once

#include "core/model/Stretch.h"

#include <cstdint>
#include <vector>

namespace murbo {

/// What is known of a source's sound: how loud it is over time and where somebody speaks.
struct Heard {
    /// A moment this much above the usual level is loud: about 9.4 dB.
    static constexpr int louder = 40;

    struct Peak {
        double time = 0; ///< seconds
        std::uint8_t level = 0;
        bool operator==(const Peak&) const = default;
    };

    std::vector<std::uint8_t> levels; ///< 0 silent to 255 at full scale, 60 dB in equal steps
    int rate = 10;                    ///< levels a second
    std::vector<Stretch> voiced;      ///< where somebody speaks

    /// The median level: of all, or of a stretch. 0 where there is none.
    int usual() const;
    int usual(const Stretch& within) const;

    /// Every level of a stretch with its time, loudest first, equal ones in time order.
    std::vector<Peak> peaks(const Stretch& within) const;

    /// The stretches that are loud against `usual`: short gaps are bridged, blips are left out.
    std::vector<Stretch> loudStretches(const Stretch& within, int usual) const;

    bool isVoiced(double time) const;
    bool isLoud(double time, int usual) const;
};

}
