#pragma once

#include "platform/vision/Network.h"

namespace murbo {

/// The networks that find people, read once from the first of these folders that exists:
///   1. the one that the environment variable MURBO_SUBJECT names,
///   2. `subject` beside the executable,
///   3. `share/murbo/subject` beside the executable's folder.
/// Both look at the whole picture stretched to their input, its channels 0…1, and give for each pixel how
/// likely it is a person's.
namespace SubjectWeights {

struct Networks {
    Network square;
    Network landscape;
};

/// Null where they are not installed, or are damaged. Any thread.
const Networks* networks();

}

}
