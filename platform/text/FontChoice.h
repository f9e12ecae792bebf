#pragma once

#include "platform/text/Font.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace murbo {

/// Which family each letter of a text is set in. Only for this room.
///
/// We choose letter by letter ourselves, so that the same text gets the same fonts whatever else is
/// installed, blanks keep the width of the text's own font between emoji, and what no font can draw is known.
struct FontChoice {
    struct FontRun {
        std::size_t from = 0; ///< bytes
        std::size_t to = 0;
        std::string family;
        int weight = 400;
    };
    std::vector<FontRun> runs;     ///< adjacent; empty where there is no font at all
    std::vector<char32_t> missing; ///< no font has them
    std::string language; ///< for the forms of Han characters: "ja", "ko", "zh-cn", "zh-tw", else "en"

    static FontChoice choose(std::string_view text, const Font& font);
};

}
