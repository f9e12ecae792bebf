#pragma once

#include "core/intake/ClipReach.h"
#include "platform/base/UUID.h"

#include <vector>

namespace murbo {

struct Clip;
struct Project;

/// Making clips of a source.
namespace Clips {

/// Adds a clip with the next number; throws a Problem once there is none left. It stays valid until the
/// project's clips change.
const Clip& append(Project& project, const UUID& source, double start, double end,
                   std::vector<double> marks = {});

/// Makes a clip around each mark (seconds on the source), within the source's length. A mark whose window
/// meets a clip of the source, touching included, grows that clip instead, and clips that then meet become
/// one: the earliest stays and loses its summary, which no longer covers it all. Marks that are not finite
/// make nothing. Answers the ids of the clips made or grown, each once.
std::vector<UUID> addAround(Project& project, std::vector<double> marks, const UUID& source,
                            ClipReach reach = {});

}

}
