#pragma once

#include "core/model/Captions.h"
#include "core/model/Mix.h"
#include "core/model/Overlay.h"
#include "core/model/Shot.h"
#include "core/model/SoundCue.h"
#include "platform/base/Field.h"
#include "platform/base/Shared.h"

#include <optional>

namespace murbo {

/// How a video is dressed. All times are on the footage, so that things stay on the words they belong to
/// when cuts are moved or trimmed. In JSON every key may be missing.
struct Look {
    List<Shot> shots;
    Captions captions;
    List<Overlay> overlays;
    List<SoundCue> sounds;
    List<SoundCue> music;
    std::optional<Mix> mix;

    bool operator==(const Look&) const = default;
    static constexpr bool everyKeyMayBeMissing = true;
    static constexpr auto fields(auto visit) {
        return visit(field("shots", &Look::shots), field("captions", &Look::captions),
                     field("overlays", &Look::overlays), field("sounds", &Look::sounds),
                     field("music", &Look::music), field("mix", &Look::mix));
    }
};

}
