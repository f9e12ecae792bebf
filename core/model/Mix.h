#pragma once

#include "core/model/Lane.h"
#include "platform/base/Field.h"

#include <optional>
#include <vector>

namespace murbo {

/// How loud the lanes are against one another. An absent level is 1.
struct Mix {
    std::optional<double> video;
    std::optional<double> overlays;
    std::optional<double> sounds;
    std::optional<double> music;
    std::optional<double> duck;             ///< what music falls to under speech, a factor
    std::optional<std::vector<Lane>> muted; ///< lanes turned off, in the order they were

    double level(Lane lane) const;
    void setLevel(Lane lane, double level);
    bool isMuted(Lane lane) const;
    /// Turns a lane off or on again; with no lane left off, `muted` has no value.
    void toggleMute(Lane lane);

    bool operator==(const Mix&) const = default;
    static constexpr auto fields(auto visit) {
        return visit(field("video", &Mix::video), field("overlays", &Mix::overlays),
                     field("sounds", &Mix::sounds), field("music", &Mix::music), field("duck", &Mix::duck),
                     field("muted", &Mix::muted));
    }
};

}
