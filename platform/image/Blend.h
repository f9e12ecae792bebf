#pragma once

#include <cstdint>

namespace murbo {

/// How a picture's colours are mixed with those below (W3C Compositing and Blending Level 1; `add` is a sum).
enum class Blend : std::uint8_t { normal, multiply, screen, overlay, add, softLight };

}
