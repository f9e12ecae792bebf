#pragma once

#include <array>
#include <cstdint>
#include <string_view>
#include <utility>

namespace murbo {

/// How a picture's colours are mixed with those below (W3C Compositing and Blending Level 1; `add` is a sum).
enum class Blend : std::uint8_t { normal, multiply, screen, overlay, add, softLight };

/// Each blend and the word by which playbooks call it.
inline constexpr std::array<std::pair<Blend, std::string_view>, 6> blendWords{{{Blend::normal, "normal"},
                                                                               {Blend::multiply, "multiply"},
                                                                               {Blend::screen, "screen"},
                                                                               {Blend::overlay, "overlay"},
                                                                               {Blend::add, "add"},
                                                                               {Blend::softLight, "soft"}}};

}
