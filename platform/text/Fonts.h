#pragma once

#include "platform/text/Font.h"

#include <string>
#include <string_view>
#include <vector>

namespace murbo {

/// The fonts of this machine, and those that come with the program: scanned once, on first use, by any
/// thread.
///
/// The rounded face is Nunito for Latin and Cyrillic, Mitr for Thai and M PLUS Rounded 1c for Japanese, each
/// read from the first of these folders that exists:
///   1. the one that the environment variable MURBO_FONTS names,
///   2. `fonts` beside the executable,
///   3. `share/murbo/fonts` beside the executable's folder.
/// Scripts that these don't cover, and machines without them, take Quicksand and the Noto family, and failing
/// these whatever is installed.
namespace Fonts {

/// The families of `list`, separated by commas, that are installed, at a weight of 0 to 1: 0 is regular, 0.4
/// bold, 0.56 heavy, 0.62 black. Families that are not installed are passed over.
Font font(std::string_view list, double weight, double size);

/// Whether a family is there; capitals don't matter.
bool installed(std::string_view family);

/// Every family there is, in alphabetical order.
std::vector<std::string> families();

}

}
