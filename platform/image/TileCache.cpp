#include "platform/image/TileCache.h"

#include <algorithm>
#include <cmath>

namespace murbo {
namespace {

/// Pieces that are drawn or not: bands of a picture, and the part of a picture that is zoomed into, need no
/// more than what they show.
constexpr int cellWidth = 256;
constexpr int cellHeight = 32;

constexpr double coarsest = 0x1p-14;

PixelRect cellsOf(const PixelRect& area, const PixelRect& whole) {
    return {(area.left - whole.left) / cellWidth, (area.top - whole.top) / cellHeight,
            (area.right - whole.left + cellWidth - 1) / cellWidth,
            (area.bottom - whole.top + cellHeight - 1) / cellHeight};
}

PixelRect pixelsOf(const PixelRect& cells, const PixelRect& whole) {
    const PixelRect area{whole.left + cells.left * cellWidth, whole.top + cells.top * cellHeight,
                         whole.left + cells.right * cellWidth, whole.top + cells.bottom * cellHeight};
    return area.intersection(whole);
}

}

double TileCache::level(double scale) {
    const double wanted = std::clamp(scale / 1.5, coarsest, finest);
    return std::ldexp(1.0, int(std::ceil(std::log2(wanted))));
}

TileCache::CachedLevel& TileCache::at(double scale, const PixelRect& whole) {
    CachedLevel& found = levels[scale];
    if (!found.bitmap.empty()) return found;
    found.bitmap = Bitmap::toBeFilled(whole.width(), whole.height());
    found.cells = cellsOf(whole, whole);
    found.states.resize(std::size_t(found.cells.area()));
    return found;
}

/// The first block of missing cells.
PixelRect TileCache::missing(CachedLevel& level, const PixelRect& cells) {
    const auto isMissing = [&](int column, int row) { return level.at(column, row) == Cell::missing; };
    for (int row = cells.top; row < cells.bottom; ++row) {
        for (int column = cells.left; column < cells.right; ++column) {
            if (!isMissing(column, row)) continue;
            PixelRect block{column, row, column + 1, row + 1};
            while (block.right < cells.right && isMissing(block.right, row)) ++block.right;
            const auto rowIsMissing = [&](int at) {
                for (int next = block.left; next < block.right; ++next) {
                    if (!isMissing(next, at)) return false;
                }
                return true;
            };
            while (block.bottom < cells.bottom && rowIsMissing(block.bottom)) ++block.bottom;
            return block;
        }
    }
    return {};
}

bool TileCache::complete(CachedLevel& level, const PixelRect& cells) {
    for (int row = cells.top; row < cells.bottom; ++row) {
        for (int column = cells.left; column < cells.right; ++column) {
            if (level.at(column, row) != Cell::there) return false;
        }
    }
    return true;
}

void TileCache::set(CachedLevel& level, const PixelRect& cells, Cell state) {
    for (int row = cells.top; row < cells.bottom; ++row) {
        for (int column = cells.left; column < cells.right; ++column) level.at(column, row) = state;
    }
}

/// Draws a block of cells, which nobody else does meanwhile. Where that fails, another may try.
void TileCache::drawBlock(CachedLevel& of, const PixelRect& block, const PixelRect& whole,
                          const DrawTile& draw, std::unique_lock<std::mutex>& held) {
    Bitmap bitmap = of.bitmap;
    const Tile all{bitmap.row(0), bitmap.stride(), whole};
    auto outcome = Cell::missing;
    std::exception_ptr failure;
    set(of, block, Cell::underWay);
    held.unlock();
    try {
        draw(all.part(pixelsOf(block, whole)));
        outcome = Cell::there;
    } catch (...) {
        failure = std::current_exception();
    }
    held.lock();
    set(of, block, outcome);
    drawn.notify_all();
    if (failure) std::rethrow_exception(failure);
}

Bitmap TileCache::pixels(double level, const PixelRect& whole, const PixelRect& wanted,
                         const DrawTile& draw) {
    std::unique_lock held(lock);
    CachedLevel& of = at(level, whole);
    const auto cells = cellsOf(wanted, whole);
    while (!complete(of, cells)) {
        const auto block = missing(of, cells);
        if (block.empty())
            drawn.wait(held);
        else
            drawBlock(of, block, whole, draw, held);
    }
    return of.bitmap;
}

}
