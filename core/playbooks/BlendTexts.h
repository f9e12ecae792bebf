#pragma once

#include "platform/base/RawText.h"
#include "platform/image/Filter.h"

namespace murbo {

/// What playbooks call the blends.
constexpr auto rawTexts(Blend) {
    return std::array<std::string_view, 6>{"normal", "multiply", "screen", "overlay", "add", "soft"};
}

}
