#pragma once

#include "core/ai/Toolkit.h"
#include "core/model/Project.h"

#include <string>
#include <vector>

namespace murbo::MadeVideo {

/// A title that a model gave, on one line and no longer than a title can be.
std::string title(const std::string& given);

/// Adds a video of these cuts, stamped with the run that it comes from. Gives its id.
UUID add(Project& project, const std::string& title, Video::Aspect aspect, std::vector<Cut> cuts, Kit::ID kit,
         const Run& run);

}
