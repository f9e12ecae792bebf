#pragma once

#include "core/model/Project.h"

namespace murbo {

/// Ten hours of footage: 10 sources with 20,000 lines, 500 clips and 50 videos of 20 cuts. Its files are not
/// there.
const Project& bigProject();

}
