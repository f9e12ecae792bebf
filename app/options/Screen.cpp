#include "app/options/Screen.h"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace murbo {

bool Screen::isThere() {
    // The last one is how Qt is asked for a screen of another kind.
    constexpr std::array names{"WAYLAND_DISPLAY", "DISPLAY", "QT_QPA_PLATFORM"};
    return std::any_of(names.begin(), names.end(), [](const char* name) {
        const char* value = std::getenv(name);
        return value && *value;
    });
}

}
