#include "app/editor/playback/PreviewVolume.h"

#include "platform/base/Problem.h"
#include "platform/store/SettingsStore.h"

#include <algorithm>
#include <cmath>

namespace murbo {
namespace {

constexpr auto levelKey = "previewVolume";
constexpr auto mutedKey = "previewMuted";

template <class Value>
void keep(SettingsStore& settings, const char* key, Value value) {
    try {
        settings.set(key, value);
    } catch (const Problem&) {
        // What is heard follows all the same; the next session starts from the level before.
    }
}

}

PreviewVolume& PreviewVolume::standard() {
    static PreviewVolume volume(SettingsStore::standard());
    return volume;
}

PreviewVolume::PreviewVolume(SettingsStore& given)
    : settings(given),
      loudness(std::clamp(given.number(levelKey).value_or(1), 0.0, 1.0)),
      silent(given.boolean(mutedKey).value_or(false)) {}

void PreviewVolume::setLevel(double level) {
    if (std::isnan(level) || level == loudness) return;
    loudness = std::clamp(level, 0.0, 1.0);
    keep(settings, levelKey, loudness);
    emit changed();
}

void PreviewVolume::setMuted(bool muted) {
    if (muted == silent) return;
    silent = muted;
    keep(settings, mutedKey, silent);
    emit changed();
}

}
