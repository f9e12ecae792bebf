#include "app/desktop/timeline/TimelineLook.h"

#include "platform/store/SettingsStore.h"

#include <algorithm>

namespace murbo {

TimelineLook TimelineLook::current() {
    const auto& settings = SettingsStore::standard();
    const auto height = [&](const char* key, double standard) {
        return std::clamp(settings.number(key).value_or(standard), 0.0, 200.0);
    };
    TimelineLook look;
    look.names = settings.boolean("clipNames").value_or(look.names);
    look.filmstrip = height("clipFilmstrip", look.filmstrip);
    look.waveform = height("clipWaveform", look.waveform);
    look.quiet = settings.boolean("clipQuiet").value_or(look.quiet);
    return look;
}

}
