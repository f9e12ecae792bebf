#include "core/model/Mix.h"

#include <algorithm>

namespace murbo {

double Mix::level(Lane lane) const {
    switch (lane) {
        case Lane::video:
            return video.value_or(1);
        case Lane::overlays:
            return overlays.value_or(1);
        case Lane::sounds:
            return sounds.value_or(1);
        case Lane::music:
            return music.value_or(1);
    }
    return 1;
}

void Mix::setLevel(Lane lane, double level) {
    switch (lane) {
        case Lane::video:
            video = level;
            break;
        case Lane::overlays:
            overlays = level;
            break;
        case Lane::sounds:
            sounds = level;
            break;
        case Lane::music:
            music = level;
            break;
    }
}

bool Mix::isMuted(Lane lane) const {
    return muted && std::find(muted->begin(), muted->end(), lane) != muted->end();
}

void Mix::toggleMute(Lane lane) {
    if (!isMuted(lane)) {
        if (!muted) muted.emplace();
        muted->push_back(lane);
        return;
    }
    std::erase(*muted, lane);
    if (muted->empty()) muted.reset();
}

}
