#include "core/model/Clip.h"

#include "platform/base/Numbers.h"
#include "platform/base/Text.h"

#include <fmt/format.h>

namespace murbo {

std::string Clip::tag() const {
    return fmt::format("C{}{}", Numbers::twoDigits(number), part.value_or(""));
}

std::string Clip::title(const std::string& otherwise) const {
    const auto own = Text::trimmedOfBlanks(name.value_or(""));
    const bool titled = summary && !Text::trimmedOfBlanks(summary->title).empty();
    if (!own.empty()) return own + " · " + (titled ? summary->title : tag());
    return titled ? summary->title : otherwise;
}

}
