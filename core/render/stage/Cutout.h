#pragma once

#include "platform/base/BoundedCache.h"
#include "platform/image/Bitmap.h"
#include "platform/image/Image.h"

#include <memory>
#include <optional>
#include <string>

namespace murbo::Cutout {

/// The masks found so far, by the pixels that they were found for: a mask can never be of another picture, in
/// whatever order frames are drawn, and a picture that stands still takes one.
using Masks = BoundedCache<std::string, std::optional<Bitmap>>;

/// A minute of one subject at 15 masks a second, where they are small.
std::shared_ptr<Masks> makeMasks();

/// The subject of a picture alone, found when it is drawn; the picture itself where there is none, or no
/// bounds to it.
Image of(const Image& picture, const std::shared_ptr<Masks>& masks);

}
