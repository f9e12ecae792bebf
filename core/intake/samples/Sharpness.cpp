#include "core/intake/samples/Sharpness.h"

namespace murbo::Sharpness {
namespace {

constexpr int side = 16; ///< of a tile, pixels

// The best quarter of a picture tells: a face before a soft background is sharp.
constexpr std::size_t toldByOneOf = 4;
// Grain is everywhere, so the calmest tenth of a picture shows how much of it there is. A little more is
// taken off, since that tenth is calm by chance too.
constexpr std::size_t calmestOneOf = 10;
constexpr double grainMargin = 1.3;
// Grain of four levels, as squared second differences of the smoothed picture. Where even the calmest tenth
// has more, all of it is grass or leaves.
constexpr double maxGrain = 16 * 9.0 / 64;
// What grain does to the slopes of the smoothed picture against what it does to its bends.
constexpr double grainSlopes = 5.0 / 12;

// Second differences show grain more than edges unless the picture is smoothed first, by 1-2-1 both ways: a
// blur of this squared radius, which is taken off again in the end.
constexpr double smoothing = 0.5;
constexpr int scale = 4; ///< of the smoothed levels: two bits below the whole ones are kept

// Slopes below this many levels, on average over the best tiles, are left by compression.
constexpr double minSlope = 0.5;
// A direction with less than this share of the other's slopes has no edges to judge it by.
constexpr double minShare = 0.02;

/// Mean squares over a tile, or over several: first and second differences along one direction.
struct Direction {
    double slopes = 0;
    double bends = 0;
};

struct SharpnessTile {
    Direction across;
    Direction down;
    double slopes() const { return across.slopes + down.slopes; }
    double bends() const { return across.bends + down.bends; }
};

/// A smoothed picture, in quarters of a level, without the outermost pixels.
struct Smooth {
    int width = 0;
    int height = 0;
    std::vector<std::int16_t> pixels;

    const std::int16_t* row(int y) const { return pixels.data() + static_cast<std::ptrdiff_t>(y) * width; }
};

Smooth smoothed(const Luma& luma) {
    Smooth smooth{luma.width - 2, luma.height - 2, {}};
    smooth.pixels.resize(static_cast<std::size_t>(smooth.width) * smooth.height);
    std::vector<std::int16_t> columns(static_cast<std::size_t>(luma.width));
    for (int y = 0; y < smooth.height; ++y) {
        const auto* above = luma.row(y);
        const auto* here = luma.row(y + 1);
        const auto* below = luma.row(y + 2);
        for (int x = 0; x < luma.width; ++x)
            columns[x] = static_cast<std::int16_t>(above[x] + 2 * here[x] + below[x]);
        auto* to = smooth.pixels.data() + static_cast<std::ptrdiff_t>(y) * smooth.width;
        const auto* from = columns.data();
        for (int x = 0; x < smooth.width; ++x)
            to[x] = static_cast<std::int16_t>((from[x] + 2 * from[x + 1] + from[x + 2] + 2) >> 2);
    }
    return smooth;
}

SharpnessTile tileAt(const Smooth& picture, int left, int top) {
    std::int32_t across = 0, acrossBends = 0, down = 0, downBends = 0;
    for (int y = top; y < top + side; ++y) {
        const auto* above = picture.row(y - 1) + left;
        const auto* here = picture.row(y) + left;
        const auto* below = picture.row(y + 1) + left;
        for (int x = 0; x < side; ++x) {
            const int across1 = here[x + 1] - here[x - 1];
            const int across2 = here[x + 1] + here[x - 1] - 2 * here[x];
            const int down1 = below[x] - above[x];
            const int down2 = below[x] + above[x] - 2 * here[x];
            across += across1 * across1;
            acrossBends += across2 * across2;
            down += down1 * down1;
            downBends += down2 * down2;
        }
    }
    constexpr double bend = 1.0 / (side * side * scale * scale);
    constexpr double slope = bend / 4; // these differences are over two pixels
    return {{across * slope, acrossBends * bend}, {down * slope, downBends * bend}};
}

std::vector<SharpnessTile> tilesOf(const Smooth& picture) {
    std::vector<SharpnessTile> tiles;
    for (int top = 1; top + side < picture.height; top += side)
        for (int left = 1; left + side < picture.width; left += side) {
            const SharpnessTile tile = tileAt(picture, left, top);
            // Black bars and drawn areas have no grain, and would hide that of the rest.
            if (tile.bends() > 0) tiles.push_back(tile);
        }
    return tiles;
}

/// Mean squared second difference, in one direction, that grain makes.
double grainOf(std::vector<SharpnessTile>& tiles) {
    const auto calm = tiles.begin() + static_cast<std::ptrdiff_t>(tiles.size() / calmestOneOf);
    std::nth_element(tiles.begin(), calm, tiles.end(),
                     [](const SharpnessTile& a, const SharpnessTile& b) { return a.bends() < b.bends(); });
    return std::min(calm->bends() / 2 * grainMargin, maxGrain);
}

SharpnessTile bestOf(std::vector<SharpnessTile>& tiles) {
    const std::size_t count = std::max<std::size_t>(tiles.size() / toldByOneOf, 1);
    std::nth_element(tiles.begin(), tiles.begin() + static_cast<std::ptrdiff_t>(count - 1), tiles.end(),
                     [](const SharpnessTile& a, const SharpnessTile& b) { return a.slopes() > b.slopes(); });
    SharpnessTile best;
    for (std::size_t at = 0; at < count; ++at) {
        const auto add = [&](Direction& sum, const Direction& one) {
            sum.slopes += one.slopes / static_cast<double>(count);
            sum.bends += one.bends / static_cast<double>(count);
        };
        add(best.across, tiles[at].across);
        add(best.down, tiles[at].down);
    }
    return best;
}

void takeOff(Direction& direction, double grain) {
    direction.slopes = std::max(direction.slopes - grain * grainSlopes, 0.0);
    direction.bends = std::max(direction.bends - grain, 0.0);
}

// A step of height A blurred by sigma has the slopes A^2 / (2 sqrt(pi) sigma), integrated across it, and the
// bends A^2 / (4 sqrt(pi) sigma^3): their ratio is 2 sigma^2.
double squaredRadius(const Direction& direction) {
    constexpr double max = largestRadius * largestRadius;
    if (!(direction.bends > 0)) return max;
    return std::clamp(direction.slopes / direction.bends / 2 - smoothing, 0.0, max);
}

}

double edgeRadius(const Luma& luma) {
    if (luma.width < 3 || luma.height < 3) return largestRadius;
    auto tiles = tilesOf(smoothed(luma));
    if (tiles.empty()) return largestRadius;
    const double grain = grainOf(tiles);
    SharpnessTile best = bestOf(tiles);
    takeOff(best.across, grain);
    takeOff(best.down, grain);
    if (best.slopes() < minSlope * minSlope) return largestRadius;
    if (best.across.slopes < minShare * best.down.slopes) return std::sqrt(squaredRadius(best.down));
    if (best.down.slopes < minShare * best.across.slopes) return std::sqrt(squaredRadius(best.across));
    return std::sqrt((squaredRadius(best.across) + squaredRadius(best.down)) / 2);
}

std::uint8_t of(const Luma& luma) {
    const double soft = edgeRadius(luma) / softRadius;
    return static_cast<std::uint8_t>(std::lround(255 / (1 + soft * soft)));
}

}
