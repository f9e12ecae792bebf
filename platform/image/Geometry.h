#pragma once

/// All geometry of pictures: pixels, the origin at the top left, y downward.

#include "platform/image/Point.h"
#include "platform/image/Rect.h"
#include "platform/image/Size.h"
#include "platform/image/Transform.h"
