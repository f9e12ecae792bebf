#include "app/desktop/timeline/TimelineAppearance.h"

#include "app/desktop/timeline/TimelineLook.h"
#include "core/model/Settings.h"
#include "platform/base/Problem.h"
#include "platform/store/SettingsStore.h"

#include <algorithm>
#include <cmath>

namespace murbo {

bool TimelineAppearance::names() const {
    return TimelineLook::current().names;
}
double TimelineAppearance::filmstrip() const {
    return TimelineLook::current().filmstrip;
}
double TimelineAppearance::waveform() const {
    return TimelineLook::current().waveform;
}
bool TimelineAppearance::quiet() const {
    return TimelineLook::current().quiet;
}
double TimelineAppearance::quietLeast() const {
    return Settings::quietLeast();
}

/// Settings that can't be written leave all as it is.
template <class T>
void TimelineAppearance::keep(const char* key, T value) {
    try {
        SettingsStore::standard().set(key, value);
    } catch (const Problem&) {
        return;
    }
    emit changed();
}

void TimelineAppearance::setNames(bool on) {
    if (on != names()) keep("clipNames", on);
}
void TimelineAppearance::setFilmstrip(double height) {
    if (const double whole = std::round(std::clamp(height, 0.0, 200.0)); whole != filmstrip())
        keep("clipFilmstrip", whole);
}
void TimelineAppearance::setWaveform(double height) {
    if (const double whole = std::round(std::clamp(height, 0.0, 200.0)); whole != waveform())
        keep("clipWaveform", whole);
}
void TimelineAppearance::setQuiet(bool on) {
    if (on != quiet()) keep("clipQuiet", on);
}
void TimelineAppearance::setQuietLeast(double seconds) {
    if (const double tenths = std::round(std::clamp(seconds, 0.1, 60.0) * 10) / 10; tenths != quietLeast())
        keep("quietLeast", tenths);
}

}
