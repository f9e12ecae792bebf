#include "core/model/Captions.h"

#include <algorithm>

namespace murbo {

const CaptionLine* Captions::line(const UUID& id) const {
    const auto found =
        std::find_if(lines.begin(), lines.end(), [&](const auto& entry) { return entry.line == id; });
    return found == lines.end() ? nullptr : &*found;
}

}
