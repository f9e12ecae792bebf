#include "core/model/Bookmark.h"

#include <fmt/format.h>

namespace murbo {

std::string Bookmark::tag() const {
    return fmt::format("B{}", number);
}

}
