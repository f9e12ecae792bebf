#pragma once

#include "platform/image/Bitmap.h"
#include "platform/image/Tile.h"

#include <condition_variable>
#include <functional>
#include <map>
#include <mutex>
#include <vector>

namespace murbo {

/// Pixels of one picture, drawn where and when they are first wanted and kept from then on. At each of its
/// sizes the picture is drawn by itself and piece by piece, so that what is kept does not depend on who asks
/// first. Any thread may ask; one that finds a piece being drawn waits for it. (A picture never waits for
/// itself: it is made of others only.)
class TileCache {
public:
    /// How finely a picture is kept that is shown at `scale`: the smallest power of two from which it is
    /// enlarged to at most one and a half.
    static double level(double scale);
    static constexpr double finest = 4; ///< no level is higher

    /// The pixels of `whole` at a level, of which those in `wanted` (a part of it) are there. `draw` is asked
    /// for those that were not.
    Bitmap pixels(double level, const PixelRect& whole, const PixelRect& wanted, const DrawTile& draw);

private:
    enum class Cell : std::uint8_t { missing, underWay, there };
    struct CachedLevel {
        Bitmap bitmap;
        PixelRect cells; ///< counted from `whole`'s top left
        std::vector<Cell> states;

        Cell& at(int column, int row) { return states[std::size_t(row) * cells.right + column]; }
    };

    CachedLevel& at(double scale, const PixelRect& whole);
    static PixelRect missing(CachedLevel& level, const PixelRect& cells);
    static bool complete(CachedLevel& level, const PixelRect& cells);
    void drawBlock(CachedLevel& of, const PixelRect& block, const PixelRect& whole, const DrawTile& draw,
                   std::unique_lock<std::mutex>& held);
    static void set(CachedLevel& level, const PixelRect& cells, Cell state);

    std::mutex lock;
    std::condition_variable drawn;
    std::map<double, CachedLevel> levels;
};

}
