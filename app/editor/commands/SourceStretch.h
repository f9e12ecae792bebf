#pragma once

#include "core/model/Stretch.h"
#include "platform/base/UUID.h"

#include <string>

namespace murbo {

/// A stretch of footage that is to be transcribed, and how it is called.
struct SourceStretch {
    UUID source;
    Stretch range; ///< seconds on the source
    std::string name;
};

}
