#pragma once

// The name that stood here before, for those who have not rebased yet.
#include "core/render/stage/StagedLayer.h"
