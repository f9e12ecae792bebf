#pragma once

#include "platform/image/draw/Raster.h"

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
class Memo {
public:
    /// How finely a picture is kept that is shown at `scale`: the smallest power of two from which it is
    /// enlarged to at most one and a half.
    static double level(double scale);
    static constexpr double finest = 4; ///< no level is higher

    /// The pixels of `whole` at a level, of which those in `wanted` (a part of it) are there. `draw` is asked
    /// for those that were not.
    using Draw = std::function<void(const Tile&)>;
    Bitmap pixels(double level, const PixelRect& whole, const PixelRect& wanted, const Draw& draw);

private:
    enum class Cell : std::uint8_t { missing, underWay, there };
    struct Kept {
        Bitmap bitmap;
        PixelRect cells; ///< counted from `whole`'s top left
        std::vector<Cell> states;

        Cell& at(int column, int row) { return states[std::size_t(row) * cells.right + column]; }
    };

    Kept& kept(double level, const PixelRect& whole);
    static PixelRect missing(Kept& kept, const PixelRect& cells);
    static bool complete(Kept& kept, const PixelRect& cells);
    void drawBlock(Kept& of, const PixelRect& block, const PixelRect& whole, const Draw& draw,
                   std::unique_lock<std::mutex>& held);
    static void set(Kept& kept, const PixelRect& cells, Cell state);

    std::mutex lock;
    std::condition_variable drawn;
    std::map<double, Kept> levels;
};

}
