#pragma once

#include "core/model/Project.h"

namespace murbo::window {

/// The ten-hour project over recordings that are there, whose first video has some 2,000 blocks.
Project longProject();

/// A video of footage at 60 frames a second, which plays for a minute.
Project fastProject();

/// One recording of three hours, with a clip of all of it.
Project recordingProject();

}
