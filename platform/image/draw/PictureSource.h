#pragma once

#include "platform/image/ImageNode.h"
#include "platform/image/draw/Raster.h"

#include <functional>

namespace murbo {

/// A picture that is drawn by itself, on whatever grid it is asked for: what filters draw from.
struct PictureSource {
    const ImageNode& picture; ///< its extents; its operations are drawn by `drawing`
    /// Ready to draw any part of `bounds`; `place` leads from the picture's space to the grid.
    std::function<DrawTile(const Transform& place, const PixelRect& bounds)> drawing;

    /// The picture drawn into a raster of its own, `area` being what of the grid is wanted; nothing where
    /// that is empty or too large to be held.
    Raster raster(const Transform& toGrid, const PixelRect& area) const;
};

}
